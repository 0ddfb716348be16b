#include "measures/frmConversions.h"

#include "core/ErrorReport.h"
#include "core/Globals.h"
#include "core/Values.h"
#include "measures/clsSize.h"
#include "platform/Recordset.h"
#include "platform/Ui.h"

#include <QAction>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QScrollBar>
#include <QStatusBar>
#include <QTableWidget>
#include <QVBoxLayout>

#include <cmath>

namespace {

// The chart's mirror cells round half to even on three decimals: 1/16 shows
// as 0.062.
// (nearbyint under the default rounding mode breaks ties to even.)
double RoundToThree(double value) { return std::nearbyint(value * 1000.0) / 1000.0; }

QAction* MenuEntry(QMenu* menu, const QString& name, const QString& caption) {
    QAction* action = menu->addAction(caption);
    action->setObjectName(name);
    return action;
}

}  // namespace

frmConversions::frmConversions(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmConversions"));
    setWindowTitle(QStringLiteral("Conversion Chart"));

    mnuBar = new QMenuBar(this);
    QMenu* file = mnuBar->addMenu(QStringLiteral("&File"));
    mnuSaveGrid = MenuEntry(file, QStringLiteral("mnuSaveGrid"), QStringLiteral("&Save Chart"));
    mnuSaveGrid->setShortcut(QKeySequence::Save);
    mnuAddConversion = MenuEntry(file, QStringLiteral("mnuAddConversion"), QStringLiteral("&Add Conversion Measure"));
    file->addSeparator();
    mnuClose = MenuEntry(file, QStringLiteral("mnuClose"), QStringLiteral("&Close"));
    QMenu* edit = mnuBar->addMenu(QStringLiteral("&Edit"));
    mnuEditCut = MenuEntry(edit, QStringLiteral("mnuEditCut"), QStringLiteral("Cu&t"));
    mnuEditCopy = MenuEntry(edit, QStringLiteral("mnuEditCopy"), QStringLiteral("&Copy"));
    mnuEditPaste = MenuEntry(edit, QStringLiteral("mnuEditPaste"), QStringLiteral("&Paste"));
    mnuEditDelete = MenuEntry(edit, QStringLiteral("mnuEditDelete"), QStringLiteral("&Delete"));
    QMenu* view = mnuBar->addMenu(QStringLiteral("&View"));
    mnuHideConversion =
        MenuEntry(view, QStringLiteral("mnuHideConversion"), QStringLiteral("&Hide Conversion Measure"));
    mnuShowAllCells = MenuEntry(view, QStringLiteral("mnuShowAllCells"), QStringLiteral("&Show All Cells"));

    flxConversionChart = new QTableWidget(this);
    flxConversionChart->setObjectName(QStringLiteral("flxConversionChart"));
    flxConversionChart->setEditTriggers(QAbstractItemView::NoEditTriggers);
    flxConversionChart->setSelectionMode(QAbstractItemView::SingleSelection);
    flxConversionChart->horizontalHeader()->setDefaultSectionSize(72);
    flxConversionChart->setWordWrap(false);
    flxConversionChart->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    flxConversionChart->verticalHeader()->setDefaultSectionSize(flxConversionChart->fontMetrics().height() + 8);
    flxConversionChart->installEventFilter(this);

    // Typing happens in a plain text box over the cell, so that what is typed
    // is kept as typed and checked only when the chart is saved.
    txtField = new QLineEdit(flxConversionChart->viewport());
    txtField->setObjectName(QStringLiteral("txtField"));
    txtField->setFrame(false);
    txtField->hide();
    txtField->installEventFilter(this);

    sbStatus = new QStatusBar(this);
    sbStatus->setObjectName(QStringLiteral("sbStatus"));
    sbStatus->setSizeGripEnabled(false);
    cellPanel_ = new QLabel(sbStatus);
    countPanel_ = new QLabel(sbStatus);
    sbStatus->addWidget(cellPanel_, 1);
    sbStatus->addPermanentWidget(countPanel_);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setMenuBar(mnuBar);
    layout->addWidget(flxConversionChart, 1);
    layout->addWidget(sbStatus);

    connect(txtField, &QLineEdit::returnPressed, this, &frmConversions::txtField_Enter);
    connect(flxConversionChart, &QTableWidget::currentCellChanged, this, [this] {
        if (Editing()) txtField_Enter();
        flxConversionChart_EnterCell();
    });
    connect(flxConversionChart, &QTableWidget::cellDoubleClicked, this, [this] { StartEdit(); });
    for (QScrollBar* bar : {flxConversionChart->horizontalScrollBar(), flxConversionChart->verticalScrollBar()})
        connect(bar, &QScrollBar::valueChanged, this, [this] { PlaceField(); });
    connect(mnuSaveGrid, &QAction::triggered, this, &frmConversions::mnuSaveGrid_Click);
    connect(mnuAddConversion, &QAction::triggered, this, &frmConversions::mnuAddConversion_Click);
    connect(mnuClose, &QAction::triggered, this, &frmConversions::mnuClose_Click);
    connect(mnuHideConversion, &QAction::triggered, this, &frmConversions::mnuHideConversion_Click);
    connect(mnuShowAllCells, &QAction::triggered, this, &frmConversions::mnuShowAllCells_Click);
    for (QAction* a : {mnuEditCut, mnuEditCopy, mnuEditPaste, mnuEditDelete})
        connect(a, &QAction::triggered, this, &frmConversions::mnuEdit_Click);

    resize(760, 480);
    Form_Load();
}

void frmConversions::Form_Load() {
    Trap(QStringLiteral("frmConversions.Form_Load"), [&] {
        flxConversionChart->clear();
        flxConversionChart->setRowCount(0);
        flxConversionChart->setColumnCount(0);
        Recordset rs;
        rs.Open(QStringLiteral("SELECT * FROM Conversion"), ConnectionMain(), adOpenStatic, adLockReadOnly);
        while (!rs.IsEOF()) {
            const int row = CLng(rs.Field(QStringLiteral("RowIndex")));
            const int column = CLng(rs.Field(QStringLiteral("ColumnIndex")));
            // A cell without a place in the chart cannot be shown; it goes
            // with the next save.
            if (row >= 1 && column >= 1) {
                if (row > flxConversionChart->rowCount()) flxConversionChart->setRowCount(row);
                if (column > flxConversionChart->columnCount()) flxConversionChart->setColumnCount(column);
                flxConversionChart->setVerticalHeaderItem(
                    row - 1, new QTableWidgetItem(TextOf(rs.Field(QStringLiteral("RowDescription")))));
                flxConversionChart->setHorizontalHeaderItem(
                    column - 1, new QTableWidgetItem(TextOf(rs.Field(QStringLiteral("ColumnDescription")))));
                SetCellText(row - 1, column - 1, TextOf(rs.Field(QStringLiteral("conversionconstant"))));
            }
            rs.MoveNext();
        }
    });
    changed_ = false;
    ShowCounts();
    flxConversionChart_EnterCell();
}

QString frmConversions::HeaderText(Qt::Orientation orientation, int index) const {
    const QTableWidgetItem* item = orientation == Qt::Vertical ? flxConversionChart->verticalHeaderItem(index)
                                                               : flxConversionChart->horizontalHeaderItem(index);
    return item ? item->text() : QString();
}

void frmConversions::SetCellText(int row, int column, const QString& text) {
    QTableWidgetItem* item = flxConversionChart->item(row, column);
    if (!item) {
        item = new QTableWidgetItem;
        item->setFlags(Qt::ItemIsSelectable | Qt::ItemIsEnabled);
        flxConversionChart->setItem(row, column, item);
    }
    item->setText(text);
}

QString frmConversions::Cell(int row, int column) const {
    const QTableWidgetItem* item = flxConversionChart->item(row - 1, column - 1);
    return item ? item->text() : QString();
}

int frmConversions::Measures() const { return flxConversionChart->rowCount(); }

QString frmConversions::StatusPanel(int panel) const { return panel == 1 ? cellPanel_->text() : countPanel_->text(); }

bool frmConversions::Editing() const { return editRow_ >= 0; }

void frmConversions::ShowCounts() {
    const int rows = flxConversionChart->rowCount();
    const int columns = flxConversionChart->columnCount();
    int filled = 0;
    for (int r = 0; r < rows; ++r)
        for (int c = 0; c < columns; ++c)
            if (!Cell(r + 1, c + 1).isEmpty()) ++filled;
    countPanel_->setText(QStringLiteral("Total Cells: %1; Filled Cells: %2").arg(rows * columns).arg(filled));
}

void frmConversions::SelectCell(int row, int column) { flxConversionChart->setCurrentCell(row - 1, column - 1); }

void frmConversions::flxConversionChart_EnterCell() {
    const int row = flxConversionChart->currentRow();
    const int column = flxConversionChart->currentColumn();
    const QString value = row >= 0 && column >= 0 ? Cell(row + 1, column + 1) : QString();
    if (value.isEmpty()) {
        cellPanel_->clear();
        return;
    }
    cellPanel_->setText(QStringLiteral("1 ") + HeaderText(Qt::Vertical, row) + QStringLiteral(" = ") + value +
                        QLatin1Char(' ') + HeaderText(Qt::Horizontal, column));
}

void frmConversions::StartEdit(const QString& typed) {
    const int row = flxConversionChart->currentRow();
    const int column = flxConversionChart->currentColumn();
    if (row < 0 || column < 0) return;
    editRow_ = row;
    editColumn_ = column;
    txtField->setText(typed.isNull() ? Cell(row + 1, column + 1) : typed);
    PlaceField();
    txtField->show();
    txtField->setFocus();
    if (typed.isNull()) txtField->selectAll();
}

void frmConversions::PlaceField() {
    if (!Editing()) return;
    const QModelIndex index = flxConversionChart->model()->index(editRow_, editColumn_);
    txtField->setGeometry(flxConversionChart->visualRect(index));
}

void frmConversions::CancelEdit() {
    editRow_ = editColumn_ = -1;
    txtField->hide();
    flxConversionChart->setFocus();
}

void frmConversions::txtField_Enter() {
    if (!Editing()) return;
    const int row = editRow_;
    const int column = editColumn_;
    const QString text = txtField->text();
    editRow_ = editColumn_ = -1;
    txtField->hide();
    SetCellText(row, column, text);
    changed_ = true;
    Trap(QStringLiteral("frmConversions.txtField_KeyPress"), [&] {
        // The opposite conversion follows from this one; a zero or a word has
        // no reciprocal, and the mirror is left as it was.
        const double value = Val(text);
        if (value != 0 && column < flxConversionChart->rowCount() && row < flxConversionChart->columnCount())
            SetCellText(column, row, CStr(RoundToThree(1.0 / value)));
    });
    ShowCounts();
    flxConversionChart_EnterCell();
    flxConversionChart->setFocus();
}

bool frmConversions::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress) return QDialog::eventFilter(watched, event);
    auto* key = static_cast<QKeyEvent*>(event);
    if (watched == txtField) {
        if (key->key() == Qt::Key_Escape) {
            CancelEdit();
            return true;
        }
        if (key->key() == Qt::Key_Enter || key->key() == Qt::Key_Return) {
            // Enter belongs to the cell, not to the dialog's default button.
            txtField_Enter();
            return true;
        }
        return false;
    }
    if (watched == flxConversionChart && !Editing()) {
        if (key->key() == Qt::Key_F2 || key->key() == Qt::Key_Enter || key->key() == Qt::Key_Return) {
            StartEdit();
            return true;
        }
        const QString typed = key->text();
        if (!typed.isEmpty() && typed.at(0).isPrint() &&
            !(key->modifiers() & (Qt::ControlModifier | Qt::AltModifier))) {
            StartEdit(typed);
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

void frmConversions::mnuAddConversion_Click() {
    if (Editing()) txtField_Enter();
    const QString name = InputBox(QStringLiteral("What is the name of the measurement that you want to add?"),
                                  QStringLiteral("Add Measurement"))
                             .trimmed();
    if (name.isEmpty()) return;
    const int row = flxConversionChart->rowCount();
    const int column = flxConversionChart->columnCount();
    flxConversionChart->setRowCount(row + 1);
    flxConversionChart->setColumnCount(column + 1);
    flxConversionChart->setVerticalHeaderItem(row, new QTableWidgetItem(name));
    flxConversionChart->setHorizontalHeaderItem(column, new QTableWidgetItem(name));
    SetCellText(row, column, QStringLiteral("1"));
    changed_ = true;
    ShowCounts();
    flxConversionChart->setCurrentCell(row, column);
}

void frmConversions::mnuSaveGrid_Click() {
    if (Editing()) txtField_Enter();
    Trap(QStringLiteral("frmConversions.mnuSaveGrid"), [&] {
        const int rows = flxConversionChart->rowCount();
        const int columns = flxConversionChart->columnCount();
        // Every cell is checked before the stored chart goes, so a typing slip
        // costs nothing but the correction.
        for (int r = 1; r <= rows; ++r) {
            for (int c = 1; c <= columns; ++c) {
                const QString value = Cell(r, c);
                if (value.trimmed().isEmpty() || IsNumeric(value)) continue;
                MsgBox(QStringLiteral("Error in Row: %1, Column: %2; %3, Please correct").arg(r).arg(c).arg(value),
                       Box::Exclamation, QStringLiteral("Data Error"));
                flxConversionChart->setRowHidden(r - 1, false);
                flxConversionChart->setColumnHidden(c - 1, false);
                SelectCell(r, c);
                return;
            }
        }

        Recordset rs;
        rs.Open(QStringLiteral("SELECT * FROM Conversion"), ConnectionMain(), adOpenKeyset, adLockOptimistic);
        while (!rs.IsEOF()) {
            rs.Delete();
            rs.MoveNext();
        }
        rs.Close();

        rs.Open(QStringLiteral("SELECT * FROM Conversion"), ConnectionMain(), adOpenStatic, adLockOptimistic);
        for (int r = 1; r <= rows; ++r) {
            const QString rowName = HeaderText(Qt::Vertical, r - 1);
            for (int c = 1; c <= columns; ++c) {
                rs.AddNew();
                rs.setField(QStringLiteral("RowIndex"), r);
                rs.setField(QStringLiteral("rowdescription"), rowName);
                rs.setField(QStringLiteral("ColumnIndex"), c);
                rs.setField(QStringLiteral("ColumnDescription"), HeaderText(Qt::Horizontal, c - 1));
                const QString value = Cell(r, c);
                if (!value.trimmed().isEmpty()) rs.setField(QStringLiteral("conversionconstant"), CDbl(value));
                rs.Update();
            }
        }
        rs.Close();

        // A measure new to the chart becomes a size that lists and products
        // can use; its short form is left for the person to give.
        clsSize sizes;
        for (int r = 0; r < rows; ++r) {
            const QString name = HeaderText(Qt::Vertical, r);
            if (!name.isEmpty() && !sizes.Exists(name)) sizes.WriteNew(name, QString());
        }
        changed_ = false;
    });
}

void frmConversions::mnuHideConversion_Click() {
    const int row = flxConversionChart->currentRow();
    const int column = flxConversionChart->currentColumn();
    if (row < 0 || column < 0) return;
    if (Editing()) txtField_Enter();
    flxConversionChart->setRowHidden(row, true);
    flxConversionChart->setColumnHidden(column, true);
}

void frmConversions::mnuShowAllCells_Click() {
    for (int r = 0; r < flxConversionChart->rowCount(); ++r) flxConversionChart->setRowHidden(r, false);
    for (int c = 0; c < flxConversionChart->columnCount(); ++c) flxConversionChart->setColumnHidden(c, false);
}

void frmConversions::mnuEdit_Click() {
    // The chart is edited cell by cell; these entries have no work here.
    MsgBox(QStringLiteral("This feature will be added soon!"), Box::Information, QStringLiteral("Coming Soon"));
}

void frmConversions::mnuClose_Click() {
    FormClosing = true;
    accept();
}
