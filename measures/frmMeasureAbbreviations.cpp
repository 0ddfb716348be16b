#include "measures/frmMeasureAbbreviations.h"

#include "core/ErrorReport.h"
#include "core/Globals.h"
#include "core/Values.h"
#include "core/modVerify.h"
#include "measures/clsAbbreviations.h"
#include "platform/Recordset.h"
#include "platform/Ui.h"

#include <QAction>
#include <QCloseEvent>
#include <QHash>
#include <QHeaderView>
#include <QMenu>
#include <QMenuBar>
#include <QTableWidget>
#include <QVBoxLayout>

namespace {

// The key of a row read from the table; lines found in recipes have none.
constexpr int IdRole = Qt::UserRole;
// The name as it was read, to tell an edited name from an unchanged one.
constexpr int StoredRole = Qt::UserRole + 1;

QAction* MenuEntry(QMenu* menu, const QString& name, const QString& caption) {
    QAction* action = menu->addAction(caption);
    action->setObjectName(name);
    return action;
}

QString CellText(const QTableWidget* grid, int row, int column) {
    const QTableWidgetItem* item = grid->item(row, column);
    return item ? item->text() : QString();
}

}  // namespace

frmMeasureAbbreviations::frmMeasureAbbreviations(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmMeasureAbbreviations"));
    setWindowTitle(QStringLiteral("Measure Abbreviations"));

    mnuBar = new QMenuBar(this);
    QMenu* file = mnuBar->addMenu(QStringLiteral("&File"));
    mnuSaveAbbreviations = MenuEntry(file, QStringLiteral("mnuSaveAbbreviations"), QStringLiteral("&Save"));
    mnuSaveAbbreviations->setShortcut(QKeySequence::Save);
    file->addSeparator();
    mnuClose = MenuEntry(file, QStringLiteral("mnuClose"), QStringLiteral("&Close"));
    QMenu* edit = mnuBar->addMenu(QStringLiteral("&Edit"));
    mnuAddAbbreviation = MenuEntry(edit, QStringLiteral("mnuAddAbbreviation"), QStringLiteral("&Add Abbreviation"));
    mnuDeleteAbbreviation =
        MenuEntry(edit, QStringLiteral("mnuDeleteAbbreviation"), QStringLiteral("&Delete Abbreviation"));
    edit->addSeparator();
    mnuFindUnlistedAbbr =
        MenuEntry(edit, QStringLiteral("mnuFindUnlistedAbbr"), QStringLiteral("&Find Unlisted Abbreviations"));

    flxAbbreviation = new QTableWidget(0, 2, this);
    flxAbbreviation->setObjectName(QStringLiteral("flxAbbreviation"));
    flxAbbreviation->setHorizontalHeaderLabels({QStringLiteral("Abbr."), QStringLiteral("Measure Name")});
    flxAbbreviation->horizontalHeader()->setStretchLastSection(true);
    flxAbbreviation->verticalHeader()->hide();
    flxAbbreviation->setSelectionBehavior(QAbstractItemView::SelectRows);
    flxAbbreviation->setSelectionMode(QAbstractItemView::SingleSelection);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setMenuBar(mnuBar);
    layout->addWidget(flxAbbreviation, 1);

    connect(flxAbbreviation, &QTableWidget::itemChanged, this, [this] {
        if (!loading_) changed_ = true;
    });
    connect(mnuSaveAbbreviations, &QAction::triggered, this, &frmMeasureAbbreviations::mnuSaveAbbreviations_Click);
    connect(mnuClose, &QAction::triggered, this, &frmMeasureAbbreviations::mnuClose_Click);
    connect(mnuAddAbbreviation, &QAction::triggered, this, &frmMeasureAbbreviations::mnuAddAbbreviation_Click);
    connect(mnuDeleteAbbreviation, &QAction::triggered, this, &frmMeasureAbbreviations::mnuDeleteAbbreviation_Click);
    connect(mnuFindUnlistedAbbr, &QAction::triggered, this, &frmMeasureAbbreviations::mnuFindUnlistedAbbr_Click);

    resize(420, 480);
    Form_Load();
}

int frmMeasureAbbreviations::AddLine(const QString& abbreviation, const QString& description, qint64 id) {
    const bool wasLoading = loading_;
    loading_ = true;
    const int row = flxAbbreviation->rowCount();
    flxAbbreviation->insertRow(row);
    auto* abbr = new QTableWidgetItem(abbreviation);
    auto* name = new QTableWidgetItem(description);
    abbr->setData(IdRole, id);
    name->setData(StoredRole, description);
    // A stored unit is found by its text everywhere; only its name may change.
    if (id > 0) abbr->setFlags(abbr->flags() & ~Qt::ItemIsEditable);
    flxAbbreviation->setItem(row, 0, abbr);
    flxAbbreviation->setItem(row, 1, name);
    loading_ = wasLoading;
    return row;
}

void frmMeasureAbbreviations::Form_Load() {
    loading_ = true;
    flxAbbreviation->setRowCount(0);
    Trap(QStringLiteral("frmMeasureAbbreviations.Form_Load"), [&] {
        Recordset rs;
        rs.Open(QStringLiteral("SELECT * FROM Abbreviation"), ConnectionMain(), adOpenStatic, adLockReadOnly);
        while (!rs.IsEOF()) {
            AddLine(TextOf(rs.Field(QStringLiteral("Abbreviation"))), TextOf(rs.Field(QStringLiteral("Description"))),
                    rs.Field(QStringLiteral("ID")).toLongLong());
            rs.MoveNext();
        }
    });
    loading_ = false;
    changed_ = false;
}

QStringList frmMeasureAbbreviations::Lines() const {
    QStringList lines;
    for (int r = 0; r < flxAbbreviation->rowCount(); ++r)
        lines << CellText(flxAbbreviation, r, 0) + QLatin1Char('|') + CellText(flxAbbreviation, r, 1);
    return lines;
}

void frmMeasureAbbreviations::mnuFindUnlistedAbbr_Click() {
    Trap(QStringLiteral("frmMeasureAbbreviations.mnuFindUnlistedAbbr"), [&] {
        clsAbbreviations abbreviations;
        // Each unit is looked up once however many recipes use it; units
        // already waiting in the grid count as known.
        QHash<QString, bool> known;
        for (int r = 0; r < flxAbbreviation->rowCount(); ++r)
            known.insert(CellText(flxAbbreviation, r, 0).trimmed().toLower(), true);
        Recordset rs;
        rs.Open(QStringLiteral("SELECT * FROM Recipie"), ConnectionMain(), adOpenForwardOnly, adLockReadOnly);
        while (!rs.IsEOF()) {
            for (int i = 1; i <= 18; ++i) {
                const Split fields(TextOf(rs.Field(QStringLiteral("Ingredient%1").arg(i))), QStringLiteral("%%"));
                if (fields.count() <= 1) continue;
                const QString unit = fields[1].trimmed();
                if (unit.isEmpty()) continue;
                const QString key = unit.toLower();
                auto it = known.constFind(key);
                if (it == known.cend()) it = known.insert(key, abbreviations.Exists(unit));
                if (*it) continue;
                AddLine(unit, QString(), 0);
                known[key] = true;
                changed_ = true;
            }
            rs.MoveNext();
        }
    });
}

void frmMeasureAbbreviations::mnuDeleteAbbreviation_Click() {
    const int row = flxAbbreviation->currentRow();
    if (row < 0) return;
    const QString abbreviation = CellText(flxAbbreviation, row, 0);
    // A line not yet saved has nothing stored to remove.
    if (flxAbbreviation->item(row, 0)->data(IdRole).toLongLong() > 0) {
        clsAbbreviations abbreviations;
        abbreviations.Remove(abbreviation);
    }
    const bool wasLoading = loading_;
    loading_ = true;
    flxAbbreviation->removeRow(row);
    loading_ = wasLoading;
}

void frmMeasureAbbreviations::mnuAddAbbreviation_Click() {
    const int row = AddLine(QString(), QString(), 0);
    changed_ = true;
    flxAbbreviation->setCurrentCell(row, 0);
    flxAbbreviation->editItem(flxAbbreviation->item(row, 0));
}

void frmMeasureAbbreviations::mnuSaveAbbreviations_Click() {
    Trap(QStringLiteral("frmMeasureAbbreviations.mnuSaveAbbreviations"), [&] {
        loading_ = true;
        for (int r = 0; r < flxAbbreviation->rowCount(); ++r) {
            QTableWidgetItem* abbr = flxAbbreviation->item(r, 0);
            QTableWidgetItem* name = flxAbbreviation->item(r, 1);
            const QString unit = abbr->text().trimmed();
            const qint64 id = abbr->data(IdRole).toLongLong();
            if (id > 0) {
                if (name->text() == name->data(StoredRole).toString()) continue;
                Recordset rs;
                rs.Open(QStringLiteral("SELECT * FROM Abbreviation WHERE [ID] = %1").arg(id), ConnectionMain(),
                        adOpenKeyset, adLockOptimistic);
                if (!rs.IsEOF()) {
                    rs.setField(QStringLiteral("Description"), name->text());
                    rs.Update();
                }
                name->setData(StoredRole, name->text());
                continue;
            }
            if (unit.isEmpty()) continue;
            clsAbbreviations abbreviations;
            if (abbreviations.Exists(unit)) continue;
            abbreviations.Abbreviation(unit);
            abbreviations.Description(name->text());
            if (!abbreviations.AddNew()) continue;
            // The name asked for by AddNew shows in the grid as stored.
            name->setText(abbreviations.Description());
            name->setData(StoredRole, name->text());
            Recordset rs;
            rs.Open(QStringLiteral("SELECT [ID] FROM Abbreviation WHERE [Abbreviation] = '") + QuoteSql(unit) +
                        QLatin1Char('\''),
                    ConnectionMain(), adOpenKeyset, adLockReadOnly);
            if (!rs.IsEOF()) {
                abbr->setData(IdRole, rs.Field(QStringLiteral("ID")).toLongLong());
                abbr->setFlags(abbr->flags() & ~Qt::ItemIsEditable);
            }
        }
        changed_ = false;
    });
    loading_ = false;
}

bool frmMeasureAbbreviations::MayClose() {
    if (!changed_) return true;
    Response = MsgBox(QStringLiteral("The current list of Abbreviations has changed. Do you wish to close this form?"),
                      Box::YesNo + Box::Question, QStringLiteral("Cancel?"));
    return Response == Answer::Yes;
}

void frmMeasureAbbreviations::mnuClose_Click() {
    if (!MayClose()) return;
    FormClosing = true;
    closing_ = true;
    QDialog::reject();
}

void frmMeasureAbbreviations::reject() {
    // Escape takes the same way out as Close.
    if (closing_) {
        QDialog::reject();
        return;
    }
    mnuClose_Click();
}

void frmMeasureAbbreviations::closeEvent(QCloseEvent* event) {
    if (closing_ || MayClose()) {
        closing_ = true;
        event->accept();
        QDialog::reject();
        return;
    }
    event->ignore();
}
