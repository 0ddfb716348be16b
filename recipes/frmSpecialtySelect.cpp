#include "recipes/frmSpecialtySelect.h"

#include "core/ErrorReport.h"
#include "core/Globals.h"
#include "core/Values.h"
#include "platform/Recordset.h"

#include <QDialogButtonBox>
#include <QListWidget>
#include <QVBoxLayout>

frmSpecialtySelect::frmSpecialtySelect(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmSpecialtySelect"));
    setWindowTitle(QStringLiteral("Select a Specialty"));
    lstSpecialties = new QListWidget(this);
    lstSpecialties->setObjectName(QStringLiteral("lstSpecialties"));
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(lstSpecialties, &QListWidget::itemDoubleClicked, this, &QDialog::accept);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(lstSpecialties, 1);
    layout->addWidget(buttons);
    resize(280, 320);

    Trap(QStringLiteral("frmSpecialtySelect.FormLoad"), [&] {
        Recordset rs;
        rs.Open(QStringLiteral("SELECT [Specialty] FROM CookBook"), ConnectionMain(), adOpenForwardOnly,
                adLockReadOnly);
        QStringList seen;
        for (; !rs.IsEOF(); rs.MoveNext()) {
            const QString s = TextOf(rs.Field(QStringLiteral("Specialty"))).trimmed();
            if (!s.isEmpty() && !seen.contains(s, Qt::CaseInsensitive)) seen << s;
        }
        seen.sort(Qt::CaseInsensitive);
        lstSpecialties->addItems(seen);
    });
    if (lstSpecialties->count() > 0) lstSpecialties->setCurrentRow(0);
}

QString frmSpecialtySelect::Choice() const {
    return lstSpecialties->currentItem() ? lstSpecialties->currentItem()->text() : QString();
}
