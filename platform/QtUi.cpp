#include "platform/QtUi.h"

#include <QApplication>
#include <QDesktopServices>
#include <QDialog>
#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>
#include <QMessageBox>
#include <QPushButton>
#include <QUrl>

namespace {

QWidget* ActiveParent() { return QApplication::activeWindow(); }

}  // namespace

int QtUi::MsgBox(const QString& prompt, int buttons, const QString& title, const QString& helpFile, int context) {
    QMessageBox box(ActiveParent());
    box.setWindowTitle(title.isEmpty() ? DefaultBoxTitle() : title);
    box.setText(prompt);
    switch (buttons & 0x70) {
    case Box::Critical:
        box.setIcon(QMessageBox::Critical);
        break;
    case Box::Question:
        box.setIcon(QMessageBox::Question);
        break;
    case Box::Exclamation:
        box.setIcon(QMessageBox::Warning);
        break;
    case Box::Information:
        box.setIcon(QMessageBox::Information);
        break;
    default:
        break;
    }
    struct Choice {
        QMessageBox::StandardButton button;
        int code;
    };
    QList<Choice> choices;
    switch (buttons & 0x7) {
    case Box::OKCancel:
        choices = {{QMessageBox::Ok, Answer::OK}, {QMessageBox::Cancel, Answer::Cancel}};
        break;
    case Box::AbortRetryIgnore:
        choices = {{QMessageBox::Abort, Answer::Abort},
                   {QMessageBox::Retry, Answer::Retry},
                   {QMessageBox::Ignore, Answer::Ignore}};
        break;
    case Box::YesNoCancel:
        choices = {
            {QMessageBox::Yes, Answer::Yes}, {QMessageBox::No, Answer::No}, {QMessageBox::Cancel, Answer::Cancel}};
        break;
    case Box::YesNo:
        choices = {{QMessageBox::Yes, Answer::Yes}, {QMessageBox::No, Answer::No}};
        break;
    case Box::RetryCancel:
        choices = {{QMessageBox::Retry, Answer::Retry}, {QMessageBox::Cancel, Answer::Cancel}};
        break;
    default:
        choices = {{QMessageBox::Ok, Answer::OK}};
        break;
    }
    for (const Choice& c : choices) box.addButton(c.button);
    const int defaultIndex = (buttons & Box::DefaultButton3) ? 2 : (buttons & Box::DefaultButton2) ? 1 : 0;
    if (defaultIndex < choices.size()) box.setDefaultButton(choices[defaultIndex].button);
    QPushButton* help = nullptr;
    if (buttons & Box::HelpButton) {
        help = box.addButton(QMessageBox::Help);
        // Help opens the help file and leaves the question on screen.
        help->disconnect();
        QObject::connect(help, &QPushButton::clicked, &box, [helpFile, context, &box] {
            if (QFileInfo::exists(helpFile))
                QDesktopServices::openUrl(QUrl::fromLocalFile(helpFile));
            else
                QMessageBox::information(
                    &box, DefaultBoxTitle(),
                    QStringLiteral("Help is not available: %1 (topic %2)").arg(helpFile).arg(context));
        });
    }
    box.exec();
    const auto clicked = box.standardButton(box.clickedButton());
    for (const Choice& c : choices)
        if (c.button == clicked) return c.code;
    // Closed by the window's own button: the cancel-like answer.
    return choices.size() > 1 ? choices.last().code : Answer::OK;
}

QString QtUi::InputBox(const QString& prompt, const QString& title, const QString& def) {
    bool ok = false;
    const QString text = QInputDialog::getText(ActiveParent(), title.isEmpty() ? DefaultBoxTitle() : title, prompt,
                                               QLineEdit::Normal, def, &ok);
    return ok ? text : QString();
}

QString QtUi::OpenFileName(const QString& title, const QString& dir, const QString& filter) {
    return QFileDialog::getOpenFileName(ActiveParent(), title, dir, filter);
}

QString QtUi::SaveFileName(const QString& title, const QString& dir, const QString& filter, bool confirmOverwrite) {
    return QFileDialog::getSaveFileName(ActiveParent(), title, dir, filter, nullptr,
                                        confirmOverwrite ? QFileDialog::Options() : QFileDialog::DontConfirmOverwrite);
}

QString QtUi::FolderName(const QString& title, const QString& dir) {
    return QFileDialog::getExistingDirectory(ActiveParent(), title, dir);
}

int QtUi::ShowModal(QDialog* dialog) { return dialog->exec(); }

void QtUi::ShowModeless(QWidget* window, QWidget* owner) {
    if (owner && window->parentWidget() != owner) window->setParent(owner, window->windowFlags() | Qt::Window);
    window->show();
    window->raise();
}
