#pragma once

#include <QDialog>

class QAction;
class QMenuBar;
class QTableWidget;

// The units recipes use, with their long names. Units that recipes hold but
// the list lacks can be gathered from the recipes and described here.
class frmMeasureAbbreviations : public QDialog {
    Q_OBJECT
public:
    explicit frmMeasureAbbreviations(QWidget* parent = nullptr);

    QMenuBar* mnuBar;
    QTableWidget* flxAbbreviation;
    QAction* mnuSaveAbbreviations;
    QAction* mnuClose;
    QAction* mnuAddAbbreviation;
    QAction* mnuDeleteAbbreviation;
    QAction* mnuFindUnlistedAbbr;

    bool Changed() const { return changed_; }
    // The grid's rows as "abbreviation|name", in order.
    QStringList Lines() const;

public Q_SLOTS:
    void Form_Load();
    void mnuFindUnlistedAbbr_Click();
    void mnuDeleteAbbreviation_Click();
    void mnuAddAbbreviation_Click();
    // Writes new units and changed names.
    void mnuSaveAbbreviations_Click();
    void mnuClose_Click();

protected:
    void closeEvent(QCloseEvent* event) override;
    void reject() override;

private:
    int AddLine(const QString& abbreviation, const QString& description, qint64 id);
    bool MayClose();

    bool changed_ = false;
    bool loading_ = false;
    bool closing_ = false;
};
