#pragma once

#include <QObject>
#include <QString>
#include <functional>

class QComboBox;
class QLineEdit;

// Completion while typing in a combo box: the text grows to the first entry of
// the box's list that starts with what was typed, and the added characters are
// left selected so that the next key replaces them.
namespace modAutoComplete {

// One completion step for the text now in an editable combo, `lastKey` being the
// key that changed it (a Qt::Key). Backspace cuts the last character (the one
// before a completion that the key just removed); Delete leaves the text as it
// is; any other key completes. Nothing happens to an empty text. True when the
// text was changed here.
bool ComboComplete(QComboBox* combo, int lastKey);

// The index of the first entry of the combo's list that starts with `text`,
// without regard to case; -1 when none does.
int FindStarting(const QComboBox* combo, const QString& text);

}  // namespace modAutoComplete

// Watches an editable combo's typing and runs the completion step after each
// key the person types (changes made by the program are not completion's
// business), guarded so that its own change does not start another. Emits
// Typed afterwards, for a screen that reacts to every typed change.
class ComboCompleter : public QObject {
    Q_OBJECT
public:
    // `enabled` is asked at each change (a setting that may be switched while
    // the screen is open).
    ComboCompleter(QComboBox* combo, std::function<bool()> enabled);

    int LastKey() const { return lastKey_; }
    // Runs the change as if `key` had just been typed into the box as it now
    // stands; for keys that arrive without a keyboard (a scanner's text).
    void Changed(int key);

Q_SIGNALS:
    void Typed();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QComboBox* combo_;
    std::function<bool()> enabled_;
    int lastKey_ = 0;
    // A Backspace that only removed a completion's selected tail.
    bool cutCompletion_ = false;
    bool busy_ = false;
};
