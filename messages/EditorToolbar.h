#pragma once

#include <QToolBar>
#include <functional>

class QTextEdit;

// The toolbar of the message and comment editors: "Cut", "Copy", "Paste" and
// "Undo" on the text box, then the buttons the screen adds; a "Spell" button
// among them runs the spell check. Every button, the screen's own included,
// reports its key through buttonClicked.
class EditorToolbar : public QToolBar {
    Q_OBJECT
public:
    EditorToolbar(QTextEdit* editor, QWidget* parent = nullptr);

    QAction* AddButton(const QString& key, const QString& caption);
    QAction* Button(const QString& key) const;
    // What a click on the button does: the edit commands act here, the rest are
    // the screen's.
    void ButtonClick(const QString& key);

    // The spell checker walks a text box; the text services install it. Until
    // then "Spell" only says the check is done.
    using SpellChecker = std::function<void(QTextEdit*)>;
    static void SetSpellChecker(SpellChecker checker);

Q_SIGNALS:
    void buttonClicked(const QString& key);

private:
    QTextEdit* editor_;
};
