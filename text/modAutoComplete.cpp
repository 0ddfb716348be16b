#include "text/modAutoComplete.h"

#include <QAbstractItemModel>
#include <QComboBox>
#include <QEvent>
#include <QKeyEvent>
#include <QLineEdit>

namespace modAutoComplete {

int FindStarting(const QComboBox* combo, const QString& text) {
    if (text.isEmpty()) return -1;
    const int n = combo->count();
    for (int i = 0; i < n; ++i)
        if (combo->itemText(i).startsWith(text, Qt::CaseInsensitive)) return i;
    return -1;
}

bool ComboComplete(QComboBox* combo, int lastKey) {
    QLineEdit* edit = combo->lineEdit();
    if (!edit) return false;
    const QString typed = edit->text();
    if (typed.isEmpty()) return false;
    if (lastKey == Qt::Key_Backspace) {
        edit->setText(typed.left(typed.size() - 1));
        return true;
    }
    if (lastKey == Qt::Key_Delete) return false;
    const int found = FindStarting(combo, typed);
    if (found < 0) return false;
    const QString entry = combo->itemText(found);
    if (entry.size() == typed.size() && entry == typed) return false;
    // The entry's own spelling, with what the person did not type selected.
    edit->setText(entry);
    edit->setSelection(entry.size(), typed.size() - entry.size());
    return true;
}

}  // namespace modAutoComplete

ComboCompleter::ComboCompleter(QComboBox* combo, std::function<bool()> enabled)
    : QObject(combo), combo_(combo), enabled_(std::move(enabled)) {
    if (QLineEdit* edit = combo->lineEdit()) {
        edit->installEventFilter(this);
        connect(edit, &QLineEdit::textEdited, this, [this] { Changed(lastKey_); });
    }
}

bool ComboCompleter::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        auto* key = static_cast<QKeyEvent*>(event);
        lastKey_ = key->key();
        cutCompletion_ = false;
        if (lastKey_ == Qt::Key_Backspace) {
            // Backspace over a completion takes the completion and the last
            // typed character together, so the person steps back one letter.
            const QLineEdit* edit = combo_->lineEdit();
            cutCompletion_ = edit->hasSelectedText() &&
                             edit->selectionStart() + edit->selectedText().size() == edit->text().size();
        }
    }
    return QObject::eventFilter(watched, event);
}

void ComboCompleter::Changed(int key) {
    if (busy_) return;
    busy_ = true;
    lastKey_ = key;
    if (enabled_ && enabled_()) {
        // A plain Backspace has already cut its character; only one that took a
        // completion away cuts one more.
        if (key != Qt::Key_Backspace || cutCompletion_)
            modAutoComplete::ComboComplete(combo_, key);
    }
    cutCompletion_ = false;
    busy_ = false;
    Q_EMIT Typed();
}
