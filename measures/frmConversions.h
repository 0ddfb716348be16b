#pragma once

#include <QDialog>

class QAction;
class QLabel;
class QLineEdit;
class QMenuBar;
class QStatusBar;
class QTableWidget;

// The conversion chart: one row and one column per measure, each cell the number
// of column measures in one row measure. Cells are typed into txtField, laid
// over the cell; the whole chart is written back by Save.
class frmConversions : public QDialog {
    Q_OBJECT
public:
    explicit frmConversions(QWidget* parent = nullptr);

    QMenuBar* mnuBar;
    QTableWidget* flxConversionChart;
    QLineEdit* txtField;
    QStatusBar* sbStatus;

    QAction* mnuSaveGrid;
    QAction* mnuAddConversion;
    QAction* mnuClose;
    QAction* mnuEditCut;
    QAction* mnuEditCopy;
    QAction* mnuEditPaste;
    QAction* mnuEditDelete;
    QAction* mnuHideConversion;
    QAction* mnuShowAllCells;

    // Status bar panels from 1: the current cell's reading, then the counts.
    QString StatusPanel(int panel) const;
    // The cell of chart row and column `row`, `column` (both from 1); "" when
    // the chart has no such cell.
    QString Cell(int row, int column) const;
    int Measures() const;
    bool Changed() const { return changed_; }
    bool Editing() const;

public Q_SLOTS:
    void Form_Load();
    // Moves to a cell (both from 1) as a click would.
    void SelectCell(int row, int column);
    // Lays txtField over the current cell; `typed` replaces its text when given.
    void StartEdit(const QString& typed = QString());
    void txtField_Enter();
    void CancelEdit();
    void flxConversionChart_EnterCell();
    void mnuSaveGrid_Click();
    void mnuAddConversion_Click();
    void mnuClose_Click();
    void mnuHideConversion_Click();
    void mnuShowAllCells_Click();
    void mnuEdit_Click();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void ShowCounts();
    void PlaceField();
    QString HeaderText(Qt::Orientation orientation, int index) const;
    void SetCellText(int row, int column, const QString& text);

    QLabel* cellPanel_;
    QLabel* countPanel_;
    int editRow_ = -1;
    int editColumn_ = -1;
    bool changed_ = false;
};
