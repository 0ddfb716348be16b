#include "messages/EditorToolbar.h"

#include <QAction>
#include <QTextEdit>

#include "core/Globals.h"
#include "core/clsRegistry.h"
#include "platform/Ui.h"

namespace {

EditorToolbar::SpellChecker& Checker() {
    static EditorToolbar::SpellChecker checker;
    return checker;
}

}  // namespace

EditorToolbar::EditorToolbar(QTextEdit* editor, QWidget* parent) : QToolBar(parent), editor_(editor) {
    setObjectName(QStringLiteral("tbEditor"));
    setToolButtonStyle(Qt::ToolButtonTextOnly);
    for (const char* key : {"Cut", "Copy", "Paste", "Undo"})
        AddButton(QString::fromLatin1(key), QString::fromLatin1(key));
}

QAction* EditorToolbar::AddButton(const QString& key, const QString& caption) {
    QAction* action = addAction(caption);
    action->setObjectName(key);
    connect(action, &QAction::triggered, this, [this, key] { ButtonClick(key); });
    // Without a dictionary the check is not offered at all.
    if (key == QLatin1String("Spell")) action->setEnabled(Registry().SpellCheckAvailable());
    return action;
}

QAction* EditorToolbar::Button(const QString& key) const { return findChild<QAction*>(key); }

void EditorToolbar::ButtonClick(const QString& key) {
    if (key == QLatin1String("Cut"))
        editor_->cut();
    else if (key == QLatin1String("Copy"))
        editor_->copy();
    else if (key == QLatin1String("Paste"))
        editor_->paste();
    else if (key == QLatin1String("Undo")) {
        if (editor_->document()->isUndoAvailable()) editor_->undo();
    } else if (key == QLatin1String("Spell")) {
        if (Checker()) Checker()(editor_);
        MsgBox(QStringLiteral("Spell Check complete."), Box::Information, QStringLiteral("Spell Check"));
    }
    Q_EMIT buttonClicked(key);
}

void EditorToolbar::SetSpellChecker(SpellChecker checker) { Checker() = std::move(checker); }
