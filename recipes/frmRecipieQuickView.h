#pragma once

#include <QDialog>
#include <functional>

class QAction;
class QMenu;
class QPlainTextEdit;
class QToolBar;
class QToolButton;

// One finished recipe as text, with a toolbar of what can be done with it:
// print, preview, edit, mark, delete, put on the shopping list, set its course
// and save it as a file.
class frmRecipieQuickView : public QDialog {
    Q_OBJECT
public:
    explicit frmRecipieQuickView(QWidget* parent = nullptr);

    // Given before Display: the picture button is open only with a path.
    QString ImagePath;
    void Display(const QString& title);
    QString Title() const { return title_; }

    QPlainTextEdit* txtRecipie;
    QToolBar* tbRecipe;
    QToolButton* btnEmail;
    QMenu* mnuEmail;
    // The toolbar's button of `key`.
    QAction* Button(const QString& key) const;

    // How a saved file is shown; the shell's own viewer unless replaced.
    static std::function<void(const QString& path)> OpenFile;

public Q_SLOTS:
    void tbRecipe_ButtonClick(const QString& key);
    void tbRecipe_ButtonMenuClick(const QString& key);

protected:
    void hideEvent(QHideEvent* event) override;

private:
    void ComingSoon();
    QString SaveFolder();
    // The recipe's text written to `target`; false (and said) when it could not be.
    bool WriteText(const QString& target);

    QString title_;
};
