#pragma once

#include "platform/Ui.h"

#include <QList>
#include <QPointer>
#include <QQueue>
#include <QString>
#include <QWidget>
#include <functional>

// The message-box service of tests and benchmarks: it records every box in
// order and answers from what the test queued. A box nobody expected goes to
// onUnexpected, which a test fixture turns into a failure.
class ScriptedUi : public Ui {
public:
    struct Interaction {
        QString kind;  // "MsgBox", "InputBox", "OpenFile", "SaveFile", "Folder", "Modal", "Modeless"
        QString prompt;
        QString title;
        int buttons = 0;
        QString helpFile;
        int context = 0;
    };

    int MsgBox(const QString& prompt, int buttons, const QString& title, const QString& helpFile, int context) override;
    QString InputBox(const QString& prompt, const QString& title, const QString& def) override;
    QString OpenFileName(const QString& title, const QString& dir, const QString& filter) override;
    QString SaveFileName(const QString& title, const QString& dir, const QString& filter,
                         bool confirmOverwrite = true) override;
    QString FolderName(const QString& title, const QString& dir) override;
    int ShowModal(QDialog* dialog) override;
    void ShowModeless(QWidget* window, QWidget* owner) override;

    // Queued answers, used in order.
    void answer(int code) { answers_.enqueue(code); }
    void answerInput(const QString& text) { inputs_.enqueue(text); }
    void answerFile(const QString& path) { files_.enqueue(path); }
    // A modal screen is handed to `driver` instead of being shown; its result is
    // what the screen's exec() would have returned.
    void answerModal(std::function<int(QDialog*)> driver) { modals_.enqueue(std::move(driver)); }

    // Off: every box gets its default button's answer, input and file boxes
    // are cancelled, and nothing is reported.
    void strict(bool on) { strict_ = on; }
    // When not strict, a modal screen nobody queued an answer for goes here
    // (shown and closed, say); without it the screen is simply cancelled.
    std::function<int(QDialog*)> defaultModal;

    const QList<Interaction>& boxes() const { return boxes_; }
    int count() const { return int(boxes_.size()); }
    const Interaction& lastBox() const;
    // Boxes of one kind only ("MsgBox" by default), prompt texts in order.
    QStringList prompts(const QString& kind = QStringLiteral("MsgBox")) const;
    void clear();
    QList<QPointer<QWidget>> modeless() const { return modeless_; }
    int pendingAnswers() const { return int(answers_.size() + inputs_.size() + files_.size() + modals_.size()); }

    std::function<void(const Interaction&)> onUnexpected;

private:
    void Unexpected(const Interaction& box);

    QList<Interaction> boxes_;
    QQueue<int> answers_;
    QQueue<QString> inputs_;
    QQueue<QString> files_;
    QQueue<std::function<int(QDialog*)>> modals_;
    QList<QPointer<QWidget>> modeless_;
    bool strict_ = true;
};
