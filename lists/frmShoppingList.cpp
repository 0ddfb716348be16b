#include "lists/frmShoppingList.h"

#include "core/ErrorReport.h"
#include "core/Globals.h"
#include "core/Values.h"
#include "core/modVerify.h"
#include "lists/clsShopList.h"
#include "lists/frmShoppingListName.h"
#include "meals/clsMeal.h"
#include "platform/Recordset.h"
#include "platform/Ui.h"

#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QStatusBar>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

// The hourglass for the length of one piece of work; a question asked on the
// way gets the ordinary pointer back while it waits for the answer.
class WaitCursor {
public:
    WaitCursor() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    ~WaitCursor() { QApplication::restoreOverrideCursor(); }
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;
};

int AskWithPointer(const QString& prompt, int buttons, const QString& title) {
    const bool waiting = QApplication::overrideCursor() != nullptr;
    if (waiting) QApplication::restoreOverrideCursor();
    const int answer = MsgBox(prompt, buttons, title);
    if (waiting) QApplication::setOverrideCursor(Qt::WaitCursor);
    return answer;
}

int CountOf(const QString& sql) {
    Recordset rs;
    rs.Open(sql, ConnectionMain(), adOpenKeyset, adLockReadOnly);
    return rs.RecordCount();
}

}  // namespace

frmShoppingList::frmShoppingList(QWidget* parent) : GuardedDialog(parent) {
    setObjectName(QStringLiteral("frmShoppingList"));
    setWindowTitle(QStringLiteral("Shopping List"));
    setSizeGripEnabled(true);

    fraImportMeal = new QGroupBox(QStringLiteral("Import Meal"), this);
    fraImportMeal->setObjectName(QStringLiteral("fraImportMeal"));
    cboMeal = new QComboBox(fraImportMeal);
    cboMeal->setObjectName(QStringLiteral("cboMeal"));
    cboMeal->setMinimumWidth(260);
    cboMeal->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    cmdImport = new QPushButton(QStringLiteral("Import"), fraImportMeal);
    cmdImport->setObjectName(QStringLiteral("cmdImport"));
    auto* importRow = new QHBoxLayout(fraImportMeal);
    importRow->addWidget(cboMeal, 1);
    importRow->addWidget(cmdImport);

    lvShoppingList = new QTreeWidget(this);
    lvShoppingList->setObjectName(QStringLiteral("lvShoppingList"));
    lvShoppingList->setRootIsDecorated(false);
    lvShoppingList->setUniformRowHeights(true);
    lvShoppingList->setAlternatingRowColors(true);
    lvShoppingList->setSelectionMode(QAbstractItemView::ExtendedSelection);
    lvShoppingList->setHeaderLabels({QStringLiteral("Item"), QStringLiteral("Quantity"), QStringLiteral("Manufacturer"),
                                     QStringLiteral("Size"), QStringLiteral("Category"), QStringLiteral("Coupon"),
                                     QString(), QString(), QString()});
    for (int c : {colSpare, colCost, colStore}) lvShoppingList->setColumnHidden(c, true);
    lvShoppingList->headerItem()->setTextAlignment(colQuantity, Qt::AlignCenter);
    QHeaderView* header = lvShoppingList->header();
    header->setStretchLastSection(false);
    header->setSectionResizeMode(colItem, QHeaderView::Stretch);
    header->setSectionResizeMode(colCategory, QHeaderView::Stretch);
    lvShoppingList->setColumnWidth(colQuantity, 80);
    lvShoppingList->setColumnWidth(colManufacturer, 120);
    lvShoppingList->setColumnWidth(colSize, 90);
    lvShoppingList->setColumnWidth(colCoupon, 70);

    cmdRemove = new QPushButton(QStringLiteral("Remove"), this);
    cmdRemove->setObjectName(QStringLiteral("cmdRemove"));
    cmdSaveList = new QPushButton(QStringLiteral("Save"), this);
    cmdSaveList->setObjectName(QStringLiteral("cmdSaveList"));
    cmdClose = new QPushButton(QStringLiteral("Close"), this);
    cmdClose->setObjectName(QStringLiteral("cmdClose"));
    cmdImport->setAutoDefault(false);
    cmdRemove->setAutoDefault(false);
    cmdSaveList->setAutoDefault(false);
    cmdClose->setAutoDefault(false);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(cmdRemove);
    buttons->addStretch(1);
    buttons->addWidget(cmdSaveList);
    buttons->addWidget(cmdClose);

    sbStatus = new QStatusBar(this);
    sbStatus->setObjectName(QStringLiteral("sbStatus"));
    sbStatus->setSizeGripEnabled(false);
    lblName = new QLabel(sbStatus);
    lblDate = new QLabel(sbStatus);
    lblItems = new QLabel(sbStatus);
    lblStatus = new QLabel(sbStatus);
    sbStatus->addWidget(lblName, 3);
    sbStatus->addWidget(lblDate, 2);
    sbStatus->addWidget(lblItems, 1);
    sbStatus->addWidget(lblStatus, 1);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(fraImportMeal);
    layout->addWidget(lvShoppingList, 1);
    layout->addLayout(buttons);
    layout->addWidget(sbStatus);
    resize(820, 560);

    connect(cmdImport, &QPushButton::clicked, this, &frmShoppingList::cmdImport_Click);
    connect(cmdRemove, &QPushButton::clicked, this, &frmShoppingList::cmdRemove_Click);
    connect(cmdSaveList, &QPushButton::clicked, this, &frmShoppingList::cmdSaveList_Click);
    connect(cmdClose, &QPushButton::clicked, this, &frmShoppingList::cmdClose_Click);
    connect(lvShoppingList, &QTreeWidget::itemSelectionChanged, this, &frmShoppingList::RefreshStatus);

    LoadMeals();
    RefreshStatus();
}

void frmShoppingList::CurrentListName(const QString& name) {
    currentListName_ = name;
    RefreshStatus();
}

void frmShoppingList::CurrentListDate(const QString& date) {
    currentListDate_ = date;
    RefreshStatus();
}

void frmShoppingList::LoadMeals(int kind) {
    cboMeal->clear();
    Trap(QStringLiteral("frmShoppingList.LoadMeals"), [&] {
        QString sql = QStringLiteral("SELECT DISTINCT [Name] FROM Meal");
        if (kind == CheapMeals) sql += QStringLiteral(" WHERE [Cheap] = True");
        if (kind == FavoriteMeals) sql += QStringLiteral(" WHERE [Favorite] = True");
        Recordset rs;
        rs.Open(sql + QStringLiteral(" ORDER BY [Name]"), ConnectionMain(), adOpenKeyset, adLockReadOnly);
        for (; !rs.IsEOF(); rs.MoveNext()) cboMeal->addItem(TextOf(rs.Field(QStringLiteral("Name"))));
    });
    cmdImport->setEnabled(cboMeal->count() > 0);
}

void frmShoppingList::cmdImport_Click() {
    const QString meal = cboMeal->currentText();
    WaitCursor hourglass;
    Trap(QStringLiteral("frmShoppingList.cmdImport"), [&] {
        Recordset rs;
        rs.Open(QStringLiteral("SELECT * FROM Meal WHERE [Name] = ") + SqlText(meal), ConnectionMain(), adOpenKeyset,
                adLockOptimistic);
        if (rs.IsEOF()) {
            AskWithPointer(meal + QStringLiteral(" is not a Meal in the database."), Box::Information, QString());
            return;
        }
        // Only the meal's first row is imported, in this order of courses,
        // which is the order of the lines.
        QStringList titles;
        for (const char* course : {"Appetizer", "MainCourse", "Desert", "SideDishOne", "SideDishTwo", "SideDishThree"})
            titles << TextOf(rs.Field(QString::fromLatin1(course)));
        rs.Close();
        importingMeal_ = meal;
        for (const QString& title : titles) LoadRecipe(title);
        importingMeal_.clear();
    });
    importingMeal_.clear();
}

void frmShoppingList::AddRecipe(const QString& title) { LoadRecipe(title); }

void frmShoppingList::LoadRecipe(const QString& title) {
    if (title.trimmed().isEmpty()) return;
    TrapTail(QStringLiteral(" occurred in Shoplist.LoadRecipe."), true, [&] {
        Recordset rs;
        rs.Open(QStringLiteral("SELECT * FROM Recipie where [Title] = ") + SqlText(title), ConnectionMain(),
                adOpenKeyset, adLockOptimistic);
        // Only a meal can lose the title; a recipe asked for by itself that is
        // gone simply adds nothing.
        if (rs.IsEOF() && !importingMeal_.isEmpty()) {
            Response = AskWithPointer(
                title + QStringLiteral(" was not found in any Cookbook do you want to remove if from this Meal?"),
                Box::YesNo + Box::Question, QStringLiteral("Missing Recipe"));
            if (Response == Answer::Yes) clsMeal().RemoveRecipe(importingMeal_, title);
        }
        for (; !rs.IsEOF(); rs.MoveNext()) {
            for (int i = 1; i <= 18; ++i) {
                const QString packed = TextOf(rs.Field(QStringLiteral("Ingredient") + QString::number(i)));
                if (packed.isEmpty()) continue;
                // Lines are not merged here; like items join when the list is saved.
                const Split parts(packed, QStringLiteral("%%"));
                auto* line = new QTreeWidgetItem(
                    {parts[2], parts[0], QStringLiteral("Any"), parts[1], QStringLiteral("For ") + title,
                     QStringLiteral("No"), QString(), QString(), QString()});
                line->setTextAlignment(colQuantity, Qt::AlignCenter);
                lvShoppingList->addTopLevelItem(line);
            }
        }
        SetChanged(true);
        return true;
    });
    RefreshStatus();
}

void frmShoppingList::cmdRemove_Click() {
    const QList<QTreeWidgetItem*> selected = lvShoppingList->selectedItems();
    if (selected.isEmpty()) return;
    Response = MsgBox(QStringLiteral("Are you sure you want to remove these Item(s)?"), Box::YesNo + Box::Question,
                      QStringLiteral("Remove Item"));
    if (Response != Answer::Yes) return;
    qDeleteAll(selected);
    SetChanged(true);
}

void frmShoppingList::cmdSaveList_Click() { SaveList(); }

bool frmShoppingList::SaveList() {
    if (lvShoppingList->topLevelItemCount() == 0) {
        MsgBox(QStringLiteral("There is nothing on the list to save."), Box::Information);
        return false;
    }
    if (currentListName_.isEmpty()) {
        QString name;
        QString date = currentListDate_;
        if (!frmShoppingListName::GetName(name, date, this)) return false;
        // A new name that another list already has would throw that list's
        // rows away, so the person says so first.
        const bool taken = Trap(QStringLiteral("frmShoppingList.SaveList"), true, [&] {
            return CountOf(QStringLiteral("SELECT [Name] FROM ShopList WHERE [Name] = ") + SqlText(name)) > 0;
        });
        if (taken) {
            Response = MsgBox(QStringLiteral("The Shopping List ") + name +
                                  QStringLiteral(" already exists. Do you want to replace it?"),
                              Box::YesNo + Box::Question + Box::DefaultButton2, QStringLiteral("Replace List"));
            if (Response != Answer::Yes) return false;
        }
        currentListName_ = name;
        currentListDate_ = date;
    }
    return TrapTail(QStringLiteral(" ocurred in SaveList."), false, [&] {
        const QString name = currentListName_;
        // Every line is read and converted before the old rows go, so a line
        // that cannot be stored leaves the saved list as it was.
        struct Row {
            QString store, itemName, quantity, manufacturer, size, style;
            Currency cost;
            qint16 couponID;
            bool coupon;
        };
        QList<Row> rows;
        for (int i = 0; i < lvShoppingList->topLevelItemCount(); ++i) {
            const QTreeWidgetItem* line = lvShoppingList->topLevelItem(i);
            rows << Row{line->text(colStore),
                        line->text(colItem),
                        Val(line->text(colQuantity)) > 0 ? line->text(colQuantity) : QStringLiteral("1"),
                        line->text(colManufacturer),
                        line->text(colSize),
                        line->text(colCategory),
                        CCur(QStringLiteral("0") + line->text(colCost)),
                        CInt(QStringLiteral("0") + line->data(colItem, TagRole).toString()),
                        line->text(colCoupon).compare(QStringLiteral("YES"), Qt::CaseInsensitive) == 0};
        }
        // A list on the Current list stays there when it is written anew.
        const bool current = CountOf(QStringLiteral("SELECT [Name] FROM ShopList WHERE [Name] = ") + SqlText(name) +
                                     QStringLiteral(" AND [IsCurrent] = True")) > 0;
        clsShopList().ClearPreviousList(name);
        for (const Row& row : rows) {
            clsShopList item;
            item.Name(name);
            item.Store(row.store);
            item.Dates(currentListDate_.isEmpty() ? QStringLiteral("None") : currentListDate_);
            item.ItemName(row.itemName);
            item.ItemQuantity(row.quantity);
            item.ItemManufacturer(row.manufacturer);
            item.ItemSize(row.size);
            item.ItemStyle(row.style);
            item.ItemCost(row.cost);
            item.CouponID(row.couponID);
            item.ItemCoupon(row.coupon);
            item.Recurring(QStringLiteral(" "));
            item.IsCurrent(current);
            // Like items of one list join here.
            item.AddItem();
        }
        for (int i = 0; i < lvShoppingList->topLevelItemCount(); ++i) {
            const QTreeWidgetItem* line = lvShoppingList->topLevelItem(i);
            UpdateCoupons(line->text(colManufacturer), line->text(colItem), line->text(colSize), name);
        }
        saved_ = true;
        SetChanged(false);
        return true;
    });
}

void frmShoppingList::UpdateCoupons(const QString& manufacturer, const QString& item, const QString& size,
                                    const QString& owner) {
    TrapTail(QStringLiteral(" ocurred in UpdateCoupons."), true, [&] {
        auto like = [](const QString& text) {
            QString quoted = text;
            return QStringLiteral("'%") + QuoteSql(quoted) + QStringLiteral("%'");
        };
        Recordset rs;
        rs.Open(QStringLiteral("SELECT * FROM Coupons WHERE [Manufacturer] LIKE ") + like(manufacturer) +
                    QStringLiteral(" AND [Product] LIKE ") + like(item) + QStringLiteral(" AND [Size] LIKE ") +
                    like(size),
                ConnectionMain(), adOpenKeyset, adLockOptimistic);
        for (; !rs.IsEOF(); rs.MoveNext()) {
            rs.setField(QStringLiteral("OwnerList"), owner);
            rs.Update();
        }
        return true;
    });
}

void frmShoppingList::SetChanged(bool changed) {
    changed_ = changed;
    RefreshStatus();
}

void frmShoppingList::RefreshStatus() {
    const int lines = lvShoppingList->topLevelItemCount();
    lblName->setText(QStringLiteral("Name: ") + currentListName_);
    lblDate->setText(QStringLiteral("Date: ") + currentListDate_);
    lblItems->setText(QStringLiteral("Items: ") + QString::number(lines));
    lblStatus->setText(saved_ && !changed_ ? QStringLiteral("Status: Saved") : QStringLiteral("Status: Not Saved"));
    cmdSaveList->setEnabled(lines > 0);
    cmdRemove->setEnabled(!lvShoppingList->selectedItems().isEmpty());
    setWindowTitle(currentListName_.isEmpty() ? QStringLiteral("Shopping List")
                                              : QStringLiteral("Shopping List - ") + currentListName_);
}

bool frmShoppingList::MayClose() {
    if (!changed_) return true;
    Response = MsgBox(QStringLiteral("The current list has not been saved, Exit anyway?"), Box::YesNo + Box::Question,
                      QStringLiteral("Exit without save?"));
    return Response == Answer::Yes;
}

void frmShoppingList::cmdClose_Click() { CloseChecked(); }

void frmShoppingList::Closing() { FormClosing = true; }
