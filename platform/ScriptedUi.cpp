#include "platform/ScriptedUi.h"

#include <QDialog>
#include <QList>
#include <stdexcept>

namespace {

// The answer of the button a box starts on: the first unless the flags
// choose the second or third.
int DefaultAnswer(int buttons) {
    static const QList<QList<int>> kButtons = {{Answer::OK},
                                               {Answer::OK, Answer::Cancel},
                                               {Answer::Abort, Answer::Retry, Answer::Ignore},
                                               {Answer::Yes, Answer::No, Answer::Cancel},
                                               {Answer::Yes, Answer::No},
                                               {Answer::Retry, Answer::Cancel}};
    const QList<int>& row = kButtons.value(buttons & 0x7, kButtons[0]);
    const int which = (buttons & Box::DefaultButton3) ? 2 : (buttons & Box::DefaultButton2) ? 1 : 0;
    return row.value(which, row.first());
}

}  // namespace

void ScriptedUi::Unexpected(const Interaction& box) {
    if (!strict_) return;
    if (onUnexpected) {
        onUnexpected(box);
        return;
    }
    throw std::logic_error(("unexpected " + box.kind + ": " + box.prompt + " [" + box.title + "]").toStdString());
}

int ScriptedUi::MsgBox(const QString& prompt, int buttons, const QString& title, const QString& helpFile, int context) {
    const Interaction box{
        QStringLiteral("MsgBox"), prompt, title.isEmpty() ? DefaultBoxTitle() : title, buttons, helpFile, context};
    boxes_ << box;
    if (answers_.isEmpty()) {
        Unexpected(box);
        return DefaultAnswer(buttons);
    }
    return answers_.dequeue();
}

QString ScriptedUi::InputBox(const QString& prompt, const QString& title, const QString&) {
    const Interaction box{QStringLiteral("InputBox"), prompt, title.isEmpty() ? DefaultBoxTitle() : title};
    boxes_ << box;
    if (inputs_.isEmpty()) {
        Unexpected(box);
        return QString();
    }
    return inputs_.dequeue();
}

QString ScriptedUi::OpenFileName(const QString& title, const QString&, const QString&) {
    const Interaction box{QStringLiteral("OpenFile"), QString(), title};
    boxes_ << box;
    if (files_.isEmpty()) {
        Unexpected(box);
        return QString();
    }
    return files_.dequeue();
}

QString ScriptedUi::SaveFileName(const QString& title, const QString&, const QString&, bool) {
    const Interaction box{QStringLiteral("SaveFile"), QString(), title};
    boxes_ << box;
    if (files_.isEmpty()) {
        Unexpected(box);
        return QString();
    }
    return files_.dequeue();
}

QString ScriptedUi::FolderName(const QString& title, const QString&) {
    const Interaction box{QStringLiteral("Folder"), QString(), title};
    boxes_ << box;
    if (files_.isEmpty()) {
        Unexpected(box);
        return QString();
    }
    return files_.dequeue();
}

int ScriptedUi::ShowModal(QDialog* dialog) {
    const Interaction box{QStringLiteral("Modal"), dialog->objectName(), dialog->windowTitle()};
    boxes_ << box;
    if (modals_.isEmpty()) {
        Unexpected(box);
        return defaultModal && !strict_ ? defaultModal(dialog) : int(QDialog::Rejected);
    }
    return modals_.dequeue()(dialog);
}

void ScriptedUi::ShowModeless(QWidget* window, QWidget* owner) {
    boxes_ << Interaction{QStringLiteral("Modeless"), window->objectName(), window->windowTitle()};
    if (owner && window->parentWidget() != owner) window->setParent(owner, window->windowFlags() | Qt::Window);
    modeless_ << window;
}

const ScriptedUi::Interaction& ScriptedUi::lastBox() const {
    if (boxes_.isEmpty()) throw std::logic_error("no box was shown");
    return boxes_.last();
}

QStringList ScriptedUi::prompts(const QString& kind) const {
    QStringList out;
    for (const Interaction& b : boxes_)
        if (b.kind == kind) out << b.prompt;
    return out;
}

void ScriptedUi::clear() {
    boxes_.clear();
    answers_.clear();
    inputs_.clear();
    files_.clear();
    modals_.clear();
    modeless_.clear();
}
