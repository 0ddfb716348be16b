#include "messages/frmComment.h"

#include <QDir>
#include <QFile>
#include <QHBoxLayout>
#include <QPushButton>
#include <QTextEdit>
#include <QUrl>
#include <QVBoxLayout>

#include "core/ErrorReport.h"
#include "core/Globals.h"
#include "core/clsRegistry.h"
#include "messages/EditorToolbar.h"
#include "platform/RuntimeError.h"
#include "platform/Ui.h"
#include "publish/clsCommunications.h"

frmComment::frmComment(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmComment"));
    setWindowTitle(QStringLiteral("Comments"));
    txtComments = new QTextEdit(this);
    txtComments->setObjectName(QStringLiteral("txtComments"));
    txtComments->setAcceptRichText(false);
    tbEditor = new EditorToolbar(txtComments, this);
    tbEditor->AddButton(QStringLiteral("Open"), QStringLiteral("Open"));
    tbEditor->AddButton(QStringLiteral("Spell"), QStringLiteral("Spell"));
    tbEditor->AddButton(QStringLiteral("Help"), QStringLiteral("Help"));
    connect(tbEditor, &EditorToolbar::buttonClicked, this, &frmComment::tbEditor_ButtonClick);

    cmdOK = new QPushButton(QStringLiteral("&OK"), this);
    cmdOK->setObjectName(QStringLiteral("cmdOK"));
    cmdClear = new QPushButton(QStringLiteral("C&lear"), this);
    cmdClear->setObjectName(QStringLiteral("cmdClear"));
    cmdCancel = new QPushButton(QStringLiteral("&Cancel"), this);
    cmdCancel->setObjectName(QStringLiteral("cmdCancel"));
    for (QPushButton* b : {cmdOK, cmdClear, cmdCancel}) b->setAutoDefault(false);
    connect(cmdOK, &QPushButton::clicked, this, &frmComment::cmdOK_Click);
    connect(cmdClear, &QPushButton::clicked, this, &frmComment::cmdClear_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &frmComment::cmdCancel_Click);

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(cmdClear);
    buttons->addStretch();
    buttons->addWidget(cmdOK);
    buttons->addWidget(cmdCancel);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(tbEditor);
    layout->addWidget(txtComments, 1);
    layout->addLayout(buttons);
    resize(440, 320);
}

QString frmComment::GetComments(const QString& current) {
    return Trap(QStringLiteral("frmComment.GetComment"), current, [&] {
        txtComments->setPlainText(current);
        if (TheUi().ShowModal(this) != QDialog::Accepted) return current;
        return txtComments->toPlainText();
    });
}

void frmComment::cmdClear_Click() { txtComments->clear(); }

void frmComment::tbEditor_ButtonClick(const QString& key) {
    Trap(QStringLiteral("frmComment.GetComment"), [&] {
        if (key == QLatin1String("Open")) {
            const QString path =
                TheUi().OpenFileName(QStringLiteral("Open"), QDir::homePath(), QStringLiteral("Text Files (*.txt)"));
            if (path.isEmpty()) return;
            QFile file(path);
            if (!file.open(QIODevice::ReadOnly)) throw RuntimeError(QStringLiteral("File not found"));
            txtComments->setPlainText(QString::fromUtf8(file.readAll()));
        } else if (key == QLatin1String("Help")) {
            const QString help = Registry().HelpFile();
            if (!help.isEmpty() && QFile::exists(help)) {
                clsCommunications::OpenLink(QUrl::fromLocalFile(help).toString());
                return;
            }
            MsgBox(QStringLiteral("The help file could not be found."), Box::Exclamation, QStringLiteral("Help"));
        }
    });
}
