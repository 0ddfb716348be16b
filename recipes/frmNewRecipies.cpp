#include "recipes/frmNewRecipies.h"

#include "core/ChangeNotices.h"
#include "core/EntryBox.h"
#include "core/ErrorReport.h"
#include "core/Globals.h"
#include "core/MainPanes.h"
#include "core/Values.h"
#include "core/clsRegistry.h"
#include "core/modVerify.h"
#include "measures/clsAbbreviations.h"
#include "measures/frmConversions.h"
#include "measures/frmConvertMeasures.h"
#include "measures/frmMeasureAbbreviations.h"
#include "platform/Recordset.h"
#include "platform/RuntimeError.h"
#include "platform/Ui.h"
#include "recipes/PackedIngredient.h"
#include "recipes/clsRecCategory.h"
#include "recipes/clsRecipies.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QCompleter>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QStackedWidget>
#include <QStandardItem>
#include <QStringListModel>
#include <QToolBar>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

const QString kAccept = QStringLiteral("Accept");
const QString kEdit = QStringLiteral("EDIT");
const QStringList kStepNames = {QStringLiteral("General"), QStringLiteral("Ingredient"),
                                QStringLiteral("Instructions")};

QStringList Column(const QString& sql, const QString& column) {
    QStringList out;
    Recordset rs;
    rs.Open(sql, ConnectionMain(), adOpenForwardOnly, adLockReadOnly);
    for (; !rs.IsEOF(); rs.MoveNext()) out << TextOf(rs.Field(column));
    return out;
}

// Typing completes from the list, whatever the case typed.
void CompleteAsTyped(QComboBox* box) {
    auto* completer = new QCompleter(box->model(), box);
    completer->setCaseSensitivity(Qt::CaseInsensitive);
    completer->setCompletionMode(QCompleter::InlineCompletion);
    completer->setModelSorting(QCompleter::UnsortedModel);
    box->setCompleter(completer);
}

QPushButton* Button(const QString& name, const QString& caption, const QString& tip, QWidget* parent) {
    auto* b = new QPushButton(caption, parent);
    b->setObjectName(name);
    b->setToolTip(tip);
    // Enter belongs to the entry rows, never to a default button.
    b->setAutoDefault(false);
    return b;
}

}  // namespace

frmNewRecipies::frmNewRecipies(QWidget* parent) : GuardedDialog(parent) {
    setObjectName(QStringLiteral("frmNewRecipies"));
    setWindowTitle(QStringLiteral("New Recipie"));

    // --- General
    auto* general = new QWidget(this);
    txtName = new QLineEdit(general);
    txtName->setObjectName(QStringLiteral("txtName"));
    optAppetizer = new QRadioButton(QStringLiteral("&Appetizer"), general);
    optMainCourse = new QRadioButton(QStringLiteral("&Main Course"), general);
    optDesert = new QRadioButton(QStringLiteral("&Desert"), general);
    optAppetizer->setObjectName(QStringLiteral("optAppetizer"));
    optMainCourse->setObjectName(QStringLiteral("optMainCourse"));
    optDesert->setObjectName(QStringLiteral("optDesert"));
    auto* courseBox = new QGroupBox(QStringLiteral("Course"), general);
    auto* courseRow = new QHBoxLayout(courseBox);
    for (QRadioButton* o : {optAppetizer, optMainCourse, optDesert}) courseRow->addWidget(o);
    courseRow->addStretch(1);
    cboStyle = EntryBox(QStringLiteral("cboStyle"), general, 20);
    cmdAddStyle = Button(QStringLiteral("cmdAddStyle"), QStringLiteral("Add"), QStringLiteral("Add Style to Database"),
                         general);
    cmdAppendStyle = Button(QStringLiteral("cmdAppendStyle"), QStringLiteral("Append"),
                            QStringLiteral("Add to existing list of Recipe styles."), general);
    txtStyles = new QLineEdit(general);
    txtStyles->setObjectName(QStringLiteral("txtStyles"));
    cboServes = EntryBox(QStringLiteral("cboServes"), general, 4);
    for (int i = 1; i <= 12; ++i) cboServes->addItem(QString::number(i));
    cboServes->setCurrentIndex(-1);
    cboPrepTime = EntryBox(QStringLiteral("cboPrepTime"), general, 14);
    cboPrepTime->addItems({"15 mins.", "30 mins.", "45 mins.", "1 Hour", "1 hr. 15 mins.", "1 hr. 30 mins.",
                           "1 hr. 45 mins.", "2 Hours"});
    cboPrepTime->setCurrentIndex(-1);
    cmdAddPhoto = Button(QStringLiteral("cmdAddPhoto"), QStringLiteral("&Picture..."),
                         QStringLiteral("Choose a picture of this recipe"), general);

    auto* styleRow = new QHBoxLayout;
    styleRow->addWidget(cboStyle, 1);
    styleRow->addWidget(cmdAddStyle);
    styleRow->addWidget(cmdAppendStyle);
    auto* servesRow = new QHBoxLayout;
    servesRow->addWidget(cboServes);
    servesRow->addSpacing(16);
    servesRow->addWidget(new QLabel(QStringLiteral("Prep Time:"), general));
    servesRow->addWidget(cboPrepTime, 1);
    auto* generalForm = new QFormLayout(general);
    generalForm->addRow(QStringLiteral("&Title:"), txtName);
    generalForm->addRow(courseBox);
    auto* styleLabel = new QLabel(QStringLiteral("&Style:"), general);
    styleLabel->setBuddy(cboStyle);
    generalForm->addRow(styleLabel, styleRow);
    generalForm->addRow(QStringLiteral("Categories:"), txtStyles);
    auto* servesLabel = new QLabel(QStringLiteral("Ser&ves:"), general);
    servesLabel->setBuddy(cboServes);
    generalForm->addRow(servesLabel, servesRow);
    auto* photoRow = new QHBoxLayout;
    photoRow->addWidget(cmdAddPhoto);
    photoRow->addStretch(1);
    generalForm->addRow(QString(), photoRow);

    // --- Ingredient
    auto* ingredient = new QWidget(this);
    cboQuantity = EntryBox(QStringLiteral("cboQuantity"), ingredient, 6);
    for (int i = 1; i <= 12; ++i) cboQuantity->addItem(QString::number(i));
    cboQuantity->setCurrentIndex(-1);
    cboUnit = EntryBox(QStringLiteral("cboUnit"), ingredient, 7);
    cboItem = EntryBox(QStringLiteral("cboItem"), ingredient, 26);
    txtPrepInstructions = new QLineEdit(ingredient);
    txtPrepInstructions->setObjectName(QStringLiteral("txtPrepInstructions"));
    txtPrepInstructions->setPlaceholderText(QStringLiteral("chopped, diced ..."));
    cmdAddIngred = Button(QStringLiteral("cmdAddIngred"), QStringLiteral("Add &Ingredient"),
                          QStringLiteral("Add the ingredient to the list (Enter)"), ingredient);
    cmdConvert = Button(QStringLiteral("cmdConvert"), QStringLiteral("Con&vert"), QStringLiteral("Conversion Utility"),
                        ingredient);
    lvIngredients = new QTreeWidget(ingredient);
    lvIngredients->setObjectName(QStringLiteral("lvIngredients"));
    lvIngredients->setHeaderLabels({QStringLiteral("Item"), QStringLiteral("Unit"), QStringLiteral("Qty"),
                                    QStringLiteral("Prep")});
    lvIngredients->setRootIsDecorated(false);
    lvIngredients->setUniformRowHeights(true);
    lvIngredients->setAlternatingRowColors(true);
    lvIngredients->setContextMenuPolicy(Qt::CustomContextMenu);
    lvIngredients->setMinimumHeight(220);
    lvIngredients->headerItem()->setTextAlignment(colQty, Qt::AlignRight | Qt::AlignVCenter);
    // The columns keep their shares of the width as the window grows.
    lvIngredients->header()->setStretchLastSection(false);
    lvIngredients->viewport()->installEventFilter(this);
    mnuPopupMenu = new QMenu(this);
    mnuEditIngredient = mnuPopupMenu->addAction(QStringLiteral("&Edit Ingredient"));
    mnuEditIngredient->setObjectName(QStringLiteral("mnuEditIngredient"));
    mnuDeleteIngredient = mnuPopupMenu->addAction(QStringLiteral("&Delete Ingredient"));
    mnuDeleteIngredient->setObjectName(QStringLiteral("mnuDeleteIngredient"));

    auto* entry = new QGridLayout;
    const QStringList heads = {"&Qty", "&Unit", "I&tem", "Pr&ep"};
    QWidget* fields[] = {cboQuantity, cboUnit, cboItem, txtPrepInstructions};
    for (int c = 0; c < 4; ++c) {
        auto* head = new QLabel(heads[c], ingredient);
        head->setBuddy(fields[c]);
        entry->addWidget(head, 0, c);
        entry->addWidget(fields[c], 1, c);
    }
    entry->setColumnStretch(2, 3);
    entry->setColumnStretch(3, 2);
    auto* ingredientButtons = new QHBoxLayout;
    ingredientButtons->addStretch(1);
    ingredientButtons->addWidget(cmdConvert);
    ingredientButtons->addWidget(cmdAddIngred);
    auto* ingredientLayout = new QVBoxLayout(ingredient);
    ingredientLayout->addLayout(entry);
    ingredientLayout->addLayout(ingredientButtons);
    ingredientLayout->addWidget(lvIngredients, 1);

    // --- Instructions
    auto* instructions = new QWidget(this);
    tbDirections = new QToolBar(instructions);
    tbDirections->setObjectName(QStringLiteral("tbDirections"));
    for (const char* key : {"Cut", "Copy", "Paste", "Undo", "Delete", "Spell", "Close"}) {
        QAction* a = tbDirections->addAction(QString::fromLatin1(key));
        a->setObjectName(QString::fromLatin1(key));
        connect(a, &QAction::triggered, this, [this, key] { tbDirections_ButtonClick(QString::fromLatin1(key)); });
    }
    txtDirections = new QPlainTextEdit(instructions);
    txtDirections->setObjectName(QStringLiteral("txtDirections"));
    auto* instructionsLayout = new QVBoxLayout(instructions);
    instructionsLayout->addWidget(tbDirections);
    instructionsLayout->addWidget(txtDirections, 1);

    frRecipeStep = new QStackedWidget(this);
    frRecipeStep->setObjectName(QStringLiteral("frRecipeStep"));
    frRecipeStep->addWidget(general);
    frRecipeStep->addWidget(ingredient);
    frRecipeStep->addWidget(instructions);
    lblStep = new QLabel(this);
    lblStep->setObjectName(QStringLiteral("lblStep"));
    QFont big = lblStep->font();
    big.setBold(true);
    big.setPointSizeF(big.pointSizeF() * 1.2);
    lblStep->setFont(big);

    cmdPrevious = Button(QStringLiteral("cmdPrevious"), QStringLiteral("<< Previous"), QString(), this);
    cmdNext = Button(QStringLiteral("cmdNext"), QStringLiteral("Next >>"), QString(), this);
    cmdAdd = Button(QStringLiteral("cmdAdd"), QStringLiteral("&Save"), QStringLiteral("Save this recipe"), this);
    cmdClear = Button(QStringLiteral("cmdClear"), QStringLiteral("C&lear"), QStringLiteral("Clear all fields"), this);
    cmdClose = Button(QStringLiteral("cmdClose"), QStringLiteral("&Close"), QString(), this);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(cmdClear);
    buttons->addStretch(1);
    buttons->addWidget(cmdPrevious);
    buttons->addWidget(cmdNext);
    buttons->addSpacing(12);
    buttons->addWidget(cmdAdd);
    buttons->addWidget(cmdClose);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(lblStep);
    layout->addWidget(frRecipeStep, 1);
    layout->addLayout(buttons);

    // Enter moves along the ingredient row and adds it at the end.
    for (QWidget* w : {static_cast<QWidget*>(cboQuantity), static_cast<QWidget*>(cboUnit),
                       static_cast<QWidget*>(cboItem), static_cast<QWidget*>(txtPrepInstructions),
                       static_cast<QWidget*>(txtName)})
        w->installEventFilter(this);
    for (QComboBox* c : {cboQuantity, cboUnit, cboItem}) c->lineEdit()->installEventFilter(this);
    setTabOrder(cboQuantity, cboUnit);
    setTabOrder(cboUnit, cboItem);
    setTabOrder(cboItem, txtPrepInstructions);
    setTabOrder(txtPrepInstructions, cmdAddIngred);

    connect(cmdNext, &QPushButton::clicked, this, &frmNewRecipies::cmdNext_Click);
    connect(cmdPrevious, &QPushButton::clicked, this, &frmNewRecipies::cmdPrevious_Click);
    connect(cmdAddIngred, &QPushButton::clicked, this, &frmNewRecipies::cmdAddIngred_Click);
    connect(cmdAddStyle, &QPushButton::clicked, this, &frmNewRecipies::cmdAddStyle_Click);
    connect(cmdAppendStyle, &QPushButton::clicked, this, &frmNewRecipies::cmdAppendStyle_Click);
    connect(txtStyles, &QLineEdit::editingFinished, this, &frmNewRecipies::txtStyles_LostFocus);
    connect(cmdConvert, &QPushButton::clicked, this, &frmNewRecipies::cmdConvert_Click);
    connect(cmdAddPhoto, &QPushButton::clicked, this, &frmNewRecipies::cmdAddPhoto_Click);
    connect(cmdAdd, &QPushButton::clicked, this, &frmNewRecipies::cmdAdd_Click);
    connect(cmdClear, &QPushButton::clicked, this, &frmNewRecipies::cmdClear_Click);
    connect(cmdClose, &QPushButton::clicked, this, &GuardedDialog::CloseChecked);
    connect(cboStyle, &QComboBox::editTextChanged, this, &frmNewRecipies::EnableStyleButtons);
    connect(mnuEditIngredient, &QAction::triggered, this, &frmNewRecipies::mnuEditIngredient_Click);
    connect(mnuDeleteIngredient, &QAction::triggered, this, &frmNewRecipies::mnuDeleteIngredient_Click);
    connect(lvIngredients, &QTreeWidget::itemDoubleClicked, this, &frmNewRecipies::mnuEditIngredient_Click);
    connect(lvIngredients, &QWidget::customContextMenuRequested, this, [this](const QPoint& at) {
        QTreeWidgetItem* row = lvIngredients->itemAt(at);
        if (row) lvIngredients->setCurrentItem(row);
        mnuEditIngredient->setEnabled(row != nullptr);
        mnuDeleteIngredient->setEnabled(row != nullptr);
        mnuPopupMenu->popup(lvIngredients->viewport()->mapToGlobal(at));
    });

    FillLists();
    ShowStep(0);
    EnableStyleButtons();
    resize(720, 520);
}

frmNewRecipies::~frmNewRecipies() = default;

void frmNewRecipies::FillLists() {
    Trap(QStringLiteral("frmNewRecipies.Form_Load"), [&] {
        // The nutrition list is long: one model, handed over whole, and the
        // completer walks it in its own order.
        cboItem->setModel(new QStringListModel(
            Column(QStringLiteral("SELECT [Item] FROM Nutrition ORDER BY [Item]"), QStringLiteral("Item")), cboItem));
        cboItem->setCurrentIndex(-1);
        CompleteAsTyped(cboItem);
        cboStyle->addItems(Column(QStringLiteral("SELECT * FROM RecipieCategory"), QStringLiteral("Name")));
        cboStyle->setCurrentIndex(-1);
        if (Registry().ComboAutoComplete()) CompleteAsTyped(cboStyle);
        cboUnit->addItems(
            Column(QStringLiteral("SELECT [Abbreviation] FROM Abbreviation"), QStringLiteral("Abbreviation")));
        cboUnit->setCurrentIndex(-1);
        CompleteAsTyped(cboUnit);
    });
}

void frmNewRecipies::SetRecipe(const QString& tag) {
    recipeTag_ = tag;
    if (EditMode()) {
        setWindowTitle(QStringLiteral("Edit Recipie"));
        LoadRecipe(tag.mid(4));
    }
}

bool frmNewRecipies::EditMode() const { return recipeTag_.startsWith(kEdit); }

bool frmNewRecipies::ItemAdded(const QString& name) const {
    for (int i = 0; i < lvIngredients->topLevelItemCount(); ++i)
        if (lvIngredients->topLevelItem(i)->text(colItem).trimmed() == name.trimmed()) return true;
    return false;
}

bool frmNewRecipies::UnitAdded(const QString& unit) const {
    return cboUnit->findText(unit, Qt::MatchFixedString | Qt::MatchCaseSensitive) >= 0;
}

void frmNewRecipies::ShowStep(int step) {
    step = qBound(0, step, 2);
    frRecipeStep->setCurrentIndex(step);
    lblStep->setText(QStringLiteral("Step %1 of 3: %2").arg(step + 1).arg(kStepNames[step]));
    cmdPrevious->setEnabled(step > 0);
    cmdNext->setEnabled(step < 2);
    QWidget* first = step == 0 ? static_cast<QWidget*>(txtName)
                     : step == 1 ? static_cast<QWidget*>(cboQuantity)
                                 : static_cast<QWidget*>(txtDirections);
    first->setFocus();
}

void frmNewRecipies::cmdNext_Click() { ShowStep(frRecipeStep->currentIndex() + 1); }
void frmNewRecipies::cmdPrevious_Click() { ShowStep(frRecipeStep->currentIndex() - 1); }

bool frmNewRecipies::eventFilter(QObject* watched, QEvent* event) {
    if (watched == lvIngredients->viewport() && event->type() == QEvent::Resize) {
        const int width = lvIngredients->viewport()->width();
        const int shares[] = {50, 10, 10, 30};
        for (int c = colItem; c <= colPrep; ++c) lvIngredients->setColumnWidth(c, width * shares[c] / 100);
        return false;
    }
    if (event->type() != QEvent::KeyPress) return GuardedDialog::eventFilter(watched, event);
    const auto* key = static_cast<QKeyEvent*>(event);
    if (key->key() != Qt::Key_Return && key->key() != Qt::Key_Enter) return GuardedDialog::eventFilter(watched, event);
    auto is = [watched](QWidget* w) {
        auto* box = qobject_cast<QComboBox*>(w);
        return watched == w || (box && watched == box->lineEdit());
    };
    // A completed name takes the list's own spelling.
    for (QComboBox* box : {cboUnit, cboItem}) {
        if (!is(box)) continue;
        const int at = box->findText(box->currentText(), Qt::MatchFixedString);
        if (at >= 0 && box->itemText(at) != box->currentText()) box->setCurrentIndex(at);
    }
    if (is(txtName)) {
        cboStyle->setFocus();
    } else if (is(cboQuantity)) {
        cboUnit->setFocus();
    } else if (is(cboUnit)) {
        cboItem->setFocus();
    } else if (is(cboItem)) {
        txtPrepInstructions->setFocus();
    } else if (is(txtPrepInstructions)) {
        cmdAddIngred_Click();
    } else {
        return GuardedDialog::eventFilter(watched, event);
    }
    return true;
}

void frmNewRecipies::LoadRecipe(const QString& title) {
    Trap(QStringLiteral("frmNewRecipies.LoadRecipe"), [&] {
        Recordset rs;
        rs.Open(QStringLiteral("SELECT * FROM Recipie WHERE [Title] = ") + SqlText(title), ConnectionMain(),
                adOpenForwardOnly, adLockReadOnly);
        if (rs.IsEOF()) {
            MsgBox(QStringLiteral("That Recipe was not found."), Box::Critical, QStringLiteral("Recipe Not found"));
            found_ = false;
            CloseUnchecked();
            return;
        }
        txtName->setText(TextOf(rs.Field(QStringLiteral("Title"))));
        const QString course = TextOf(rs.Field(QStringLiteral("Course")));
        // The loader looks for the course without its blank, so a saved main
        // course comes back unchosen.
        optAppetizer->setChecked(course == QLatin1String("Appetizer"));
        optMainCourse->setChecked(course == QLatin1String("MainCourse"));
        optDesert->setChecked(course == QLatin1String("Desert"));
        txtStyles->setText(TextOf(rs.Field(QStringLiteral("Style"))));
        cboPrepTime->setEditText(TextOf(rs.Field(QStringLiteral("PrepTime"))));
        cboServes->setEditText(TextOf(rs.Field(QStringLiteral("Servings"))).left(2).trimmed());
        lvIngredients->clear();
        listCounter_ = 0;
        // All twenty, so an edit keeps the last two as well.
        for (int i = 1; i <= PackedIngredient::LastSlot; ++i) {
            const QString packed = TextOf(rs.Field(PackedIngredient::ColumnName(i)));
            if (packed.isEmpty()) continue;
            const QStringList f = packed.split(PackedIngredient::Separator);
            auto* row = new QTreeWidgetItem(lvIngredients);
            row->setText(colItem, f.value(2));
            row->setText(colUnit, f.value(1).isEmpty() ? PackedIngredient::EmptyUnit : f.value(1));
            row->setText(colQty, f.value(0));
            if (f.size() > 3) row->setText(colPrep, f.value(3));
            SetRow(row);
            ++listCounter_;
        }
        txtDirections->setPlainText(TextOf(rs.Field(QStringLiteral("Instructions"))));
        imageFile_ = TextOf(rs.Field(QStringLiteral("ImageFile")));
    });
}

void frmNewRecipies::SetRow(QTreeWidgetItem* row) {
    row->setTextAlignment(colQty, Qt::AlignRight | Qt::AlignVCenter);
    // Long names and units are cut by the columns; the whole line shows on hover.
    const QString whole = row->text(colQty).trimmed() + QLatin1Char(' ') + row->text(colUnit) + QLatin1Char(' ') +
                          row->text(colItem) +
                          (row->text(colPrep).isEmpty() ? QString() : QStringLiteral(", ") + row->text(colPrep));
    for (int c = colItem; c <= colPrep; ++c) row->setToolTip(c, whole);
}

void frmNewRecipies::cmdAddIngred_Click() {
    const QString item = cboItem->currentText();
    const QString unit = cboUnit->currentText();
    const QString quantity = cboQuantity->currentText();
    if (item.isEmpty() || unit.isEmpty() || quantity.isEmpty()) {
        MsgBox(QStringLiteral("You must enter Items, Unit and Quantity before adding to the list."), Box::Exclamation);
        return;
    }
    const QString qty = quantity.trimmed().isEmpty() ? PackedIngredient::DefaultQuantity
                                                     : PackedIngredient::PadQuantity(quantity);
    QTreeWidgetItem* row = nullptr;
    if (editing_ && editedItem_) {
        editing_ = false;
        row = editedItem_;
        editedItem_ = nullptr;
    } else {
        editing_ = false;
        ++listCounter_;
        row = new QTreeWidgetItem(lvIngredients);
    }
    row->setText(colItem, item);
    row->setText(colUnit, unit);
    row->setText(colQty, qty);
    row->setText(colPrep, txtPrepInstructions->text());
    SetRow(row);
    lvIngredients->scrollToItem(row);
    cboQuantity->setCurrentIndex(-1);
    cboQuantity->clearEditText();
    cboItem->setCurrentIndex(-1);
    cboItem->clearEditText();
    cboUnit->setCurrentIndex(-1);
    cboUnit->clearEditText();
    txtPrepInstructions->clear();
    if (EditMode())
        lvIngredients->setFocus();
    else
        cboQuantity->setFocus();  // the next row starts where this one did
}

void frmNewRecipies::mnuDeleteIngredient_Click() {
    QTreeWidgetItem* row = lvIngredients->currentItem();
    if (!row) return;
    if (editing_ && row == editedItem_) {
        if (MsgBox(QStringLiteral("This Item is being Edited, Do you want to delete it?"), Box::YesNo + Box::Question,
                   QStringLiteral("Delete Item")) != Answer::Yes)
            return;
        editing_ = false;
        editedItem_ = nullptr;
    }
    delete row;
}

void frmNewRecipies::mnuEditIngredient_Click() {
    QTreeWidgetItem* row = lvIngredients->currentItem();
    if (!row) return;
    if (editing_ && editedItem_ && editedItem_ != row) {
        if (MsgBox(QStringLiteral("Do you want to save the changed Ingredient?"), Box::YesNo + Box::Question,
                   QStringLiteral("Save Ingredient")) != Answer::No)
            cmdAddIngred_Click();
    }
    editedItem_ = row;
    editing_ = true;
    cboItem->setEditText(row->text(colItem));
    cboUnit->setEditText(row->text(colUnit));
    cboQuantity->setEditText(row->text(colQty).trimmed());
    txtPrepInstructions->setText(row->text(colPrep));
    ShowStep(1);
}

void frmNewRecipies::EnableStyleButtons() {
    const bool any = !cboStyle->currentText().isEmpty();
    cmdAddStyle->setEnabled(any);
    cmdAppendStyle->setEnabled(any);
}

void frmNewRecipies::cmdAddStyle_Click() {
    const QString name = cboStyle->currentText();
    Trap(QStringLiteral("frmNewRecipies.cmdAddStyle_Click"), [&] {
        Recordset rs;
        rs.Open(QStringLiteral("SELECT * FROM RecipieCategory WHERE Name = ") + SqlText(QuoteSql(name)),
                ConnectionMain(), adOpenKeyset, adLockOptimistic);
        if (!rs.IsEOF()) {
            MsgBox(name + QStringLiteral(" already exists."), Box::OKOnly, QStringLiteral("Duplicate"));
            return;
        }
        rs.AddNew();
        rs.setField(QStringLiteral("Name"), name);
        rs.Update();
        MainPanes::Instance().AddCategory(name);
        if (cboStyle->findText(name) < 0) cboStyle->addItem(name);
    });
}

void frmNewRecipies::cmdAppendStyle_Click() {
    const QString name = cboStyle->currentText();
    txtStyles->setText(txtStyles->text().isEmpty() ? name : txtStyles->text() + QStringLiteral(", ") + name);
}

void frmNewRecipies::txtStyles_LostFocus() {
    const QString text = txtStyles->text();
    if (text.startsWith(QLatin1Char(','))) return;
    for (const QString& part : text.split(QLatin1Char(','))) {
        const QString name = part.trimmed();
        if (name.isEmpty()) continue;
        clsRecCategory categories;
        const bool known = Trap(QStringLiteral("frmNewRecipies.txtStyles_LostFocus"), true,
                                [&] { return categories.Exists(name); });
        if (known) continue;
        if (MsgBox(name + QStringLiteral(" does not exist, do you want to add it?"), Box::YesNo + Box::Question,
                   QStringLiteral("Add Category")) != Answer::Yes)
            continue;
        Trap(QStringLiteral("frmNewRecipies.txtStyles_LostFocus"), [&] { categories.WriteNew(name); });
        if (cboStyle->findText(name) < 0) cboStyle->addItem(name);
    }
}

void frmNewRecipies::cmdConvert_Click() {
    const QString unit = cboUnit->currentText();
    QString fromUnit;
    Trap(QStringLiteral("frmNewRecipies.cmdConvert_Click"), [&] {
        Recordset rs;
        rs.Open(QStringLiteral("SELECT [ID] FROM Conversion WHERE [RowDescription] = ") + SqlText(unit),
                ConnectionMain(), adOpenForwardOnly, adLockReadOnly);
        if (!rs.IsEOF()) {
            fromUnit = unit;
            return;
        }
        rs.Close();
        rs.Open(QStringLiteral("SELECT * From ItemSize WHERE [Abbreviation] = ") + SqlText(unit), ConnectionMain(),
                adOpenForwardOnly, adLockReadOnly);
        if (!rs.IsEOF()) fromUnit = TextOf(rs.Field(QStringLiteral("Name")));
    });
    if (fromUnit.isEmpty()) {
        if (MsgBox(QStringLiteral("'") + unit +
                       QStringLiteral("' is listed as neither a mapped Conversion nor an abbreviation for a "
                                      "Converision\r\nTo add this click 'OK' or to Cancel click 'Cancel'."),
                   Box::OKCancel, QStringLiteral("Missing Measure")) == Answer::OK) {
            frmMeasureAbbreviations abbreviations(this);
            TheUi().ShowModal(&abbreviations);
            frmConversions conversions(this);
            TheUi().ShowModal(&conversions);
        }
        return;
    }
    frmConvertMeasures convert(this);
    convert.selectFromUnit(fromUnit);
    convert.txtQuantity->setText(cboQuantity->currentText().trimmed());
    TheUi().ShowModal(&convert);
}

void frmNewRecipies::cmdAddPhoto_Click() {
    const QString title = txtName->text().trimmed();
    if (title.isEmpty()) return;
    const QString file = TheUi().OpenFileName(QStringLiteral("Picture for ") + title, QString(),
                                              QStringLiteral("Pictures (*.jpg *.jpeg *.png *.bmp *.gif)"));
    if (file.isEmpty()) return;
    imageFile_ = file;
    clsRecipies().SetRecipeImage(title, file);
}

void frmNewRecipies::cmdAdd_Click() { Save(); }

bool frmNewRecipies::Save() {
    const bool edit = EditMode();
    QString oldTitle = recipeTag_.isEmpty() ? QString() : recipeTag_.mid(4);
    const QString editedTitle = oldTitle;
    if (!edit) {
        if (MsgBox(QStringLiteral("Are you certain that you have entered ") + txtName->text() +
                       QStringLiteral(" correctly?"),
                   Box::YesNo + Box::Question, QStringLiteral("Accpet")) != Answer::Yes)
            return false;
        accepted_ = kAccept;
        oldTitle = txtName->text();
    }
    if (accepted_ != kAccept && !edit) return false;

    QString newTitle;
    try {
        // The row being replaced, found as the title is stored: its mark, its
        // cookbook and its uses carry over to the new row.
        QVariant keptFavorite, keptCookbook, keptUses;
        qint64 oldId = -1;
        if (!oldTitle.isEmpty()) {
            // A new title is stored with its apostrophes doubled; the recipe
            // being edited is found, and kept, under the title it has.
            if (!edit) QuoteSql(oldTitle);
            Recordset old;
            old.Open(QStringLiteral("SELECT * FROM Recipie WHERE [Title] = ") + SqlText(oldTitle), ConnectionMain(),
                     adOpenForwardOnly, adLockReadOnly);
            if (!old.IsEOF()) {
                if (!edit && MsgBox(QStringLiteral("A recipe named ") + oldTitle +
                                        QStringLiteral(" is already on file. Do you want to replace it?"),
                                    Box::YesNo + Box::Question, QStringLiteral("Replace Recipe")) != Answer::Yes)
                    return false;
                keptFavorite = old.Field(QStringLiteral("Favorite"));
                keptCookbook = old.Field(QStringLiteral("CookbookName"));
                const QVariant uses = old.Field(QStringLiteral("TimesUsed"));
                keptUses = CInt(QVariant(QStringLiteral("0") + TextOf(uses)));
                oldId = old.Field(QStringLiteral("ID")).toLongLong();
            }
        }
        txtName->setText(oldTitle);
        newTitle = oldTitle;

        Recordset rs;
        rs.Open(QStringLiteral("SELECT * FROM Recipie WHERE [Title] = ") + SqlText(newTitle), ConnectionMain(),
                adOpenKeyset, adLockOptimistic);
        rs.AddNew();
        rs.setField(QStringLiteral("Title"), newTitle);
        if (optAppetizer->isChecked())
            rs.setField(QStringLiteral("Course"), QStringLiteral("Appetizer"));
        else if (optMainCourse->isChecked())
            rs.setField(QStringLiteral("Course"), QStringLiteral("Main Course"));
        else if (optDesert->isChecked())
            rs.setField(QStringLiteral("Course"), QStringLiteral("Desert"));
        QString style = txtStyles->text();
        if (style.trimmed().isEmpty()) style = cboStyle->currentText();
        if (style.isEmpty()) style = QStringLiteral("General");
        rs.setField(QStringLiteral("Style"), style);
        rs.setField(QStringLiteral("PrepTime"), cboPrepTime->currentText());
        rs.setField(QStringLiteral("Servings"), cboServes->currentText().trimmed() + QStringLiteral(" Servings"));
        for (int i = 0; i < lvIngredients->topLevelItemCount(); ++i) {
            const QTreeWidgetItem* row = lvIngredients->topLevelItem(i);
            if (row->text(colItem).isEmpty()) continue;
            // A list longer than the row's columns fails on the missing column.
            QString column = PackedIngredient::ColumnName(i + 1);
            if (column.isEmpty()) column = QStringLiteral("Ingredient%1").arg(i + 1);
            rs.setField(column, PackedIngredient::Pack(row->text(colQty), row->text(colUnit), row->text(colItem),
                                                       row->text(colPrep)));
            const QString unit = row->text(colUnit).trimmed();
            clsAbbreviations units;
            if (!unit.isEmpty() && !units.Exists(unit)) {
                units.Abbreviation(unit);
                units.AddNew();
            }
        }
        if (txtDirections->toPlainText().isEmpty()) txtDirections->setPlainText(QStringLiteral("None Given."));
        rs.setField(QStringLiteral("Instructions"), txtDirections->toPlainText());
        rs.setField(QStringLiteral("Favorite"), keptFavorite.isValid() && !IsNull(keptFavorite) && CBool(keptFavorite));
        const QString cookbook = TextOf(keptCookbook);
        // With no cookbook open the recipe goes to "General", so it is always on some shelf.
        const QString shelf = !cookbook.isEmpty()        ? cookbook
                              : !CurrentCookbook.isEmpty() ? CurrentCookbook
                                                           : QStringLiteral("General");
        rs.setField(QStringLiteral("CookbookName"), shelf);
        rs.setField(QStringLiteral("TimesUsed"), keptUses.isValid() ? keptUses : QVariant(0));
        rs.Update();
        rs.Close();

        // Only now that the new row stands does the old one go.
        if (oldId >= 0) {
            Recordset old;
            old.Open(QStringLiteral("SELECT * FROM Recipie WHERE [ID] = %1").arg(oldId), ConnectionMain(),
                     adOpenKeyset, adLockOptimistic);
            if (!old.IsEOF()) old.Delete();
        }
        if (edit && editedTitle != newTitle) clsRecipies().RenameRecipie(editedTitle, newTitle);
    } catch (const std::exception& e) {
        MsgBox(QStringLiteral("Error: ") + ErrorDescription(e) + QStringLiteral("."), Box::OKOnly,
               QStringLiteral("Error"));
        return false;
    }

    Q_EMIT Notices().SetCurrentRecipieCount();
    if (edit) {
        Q_EMIT Notices().LoadRecipies();
        CloseUnchecked();
        return true;
    }
    MainPanes& panes = MainPanes::Instance();
    for (const QString& part : txtStyles->text().split(QLatin1Char(','))) {
        const QString name = part.trimmed();
        if (name.isEmpty()) continue;
        QStandardItem* category = panes.AddCategory(name);
        QStandardItem* node = MainPanes::RecipeNode(newTitle, false);
        node->setData(QStringLiteral("Recipe Title"), MainPanes::TagRole);
        panes.SetColour(node, QColor(100, 100, 100));
        category->appendRow(node);
    }
    cmdClear_Click();
    return true;
}

void frmNewRecipies::cmdClear_Click() {
    txtName->clear();
    for (QRadioButton* o : {optAppetizer, optMainCourse, optDesert}) {
        o->setAutoExclusive(false);
        o->setChecked(false);
        o->setAutoExclusive(true);
    }
    for (QComboBox* c : {cboStyle, cboServes, cboPrepTime, cboQuantity, cboUnit, cboItem}) {
        c->setCurrentIndex(-1);
        c->clearEditText();
    }
    txtStyles->clear();
    txtPrepInstructions->clear();
    lvIngredients->clear();
    editedItem_ = nullptr;
    editing_ = false;
    listCounter_ = 0;
    txtDirections->clear();
    imageFile_.clear();
    ShowStep(0);
}

void frmNewRecipies::tbDirections_ButtonClick(const QString& key) {
    if (key == QLatin1String("Cut")) {
        txtDirections->cut();
    } else if (key == QLatin1String("Copy")) {
        txtDirections->copy();
    } else if (key == QLatin1String("Paste")) {
        txtDirections->paste();
    } else if (key == QLatin1String("Undo")) {
        txtDirections->undo();
    } else if (key == QLatin1String("Delete")) {
        if (MsgBox(QStringLiteral("Are you sure you want to clear the directions?"), Box::YesNo + Box::Question,
                   QStringLiteral("Delete Directions?")) == Answer::Yes)
            txtDirections->clear();
    } else if (key == QLatin1String("Spell")) {
        MsgBox(QStringLiteral("This feature will be added soon!"), Box::Information, QStringLiteral("Coming Soon"));
    } else if (key == QLatin1String("Close")) {
        cmdAdd->setFocus();
    }
}
