#include "meals/frmNewMealName.h"

#include "core/ErrorReport.h"
#include "core/Globals.h"
#include "core/MainPanes.h"
#include "core/Values.h"
#include "meals/clsMeal.h"
#include "platform/Database.h"
#include "platform/Recordset.h"
#include "platform/Ui.h"

#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <memory>

namespace {
const QString kPick = QStringLiteral("<Enter or Select>");
}

frmNewMealName::frmNewMealName(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmNewMealName"));
    setWindowTitle(QStringLiteral("Save Meal"));
    auto* note = new QLabel(QStringLiteral("Enter a name for this Meal (up to 30 characters) and pick its category."),
                            this);
    note->setWordWrap(true);
    txtMealName = new QLineEdit(this);
    txtMealName->setObjectName(QStringLiteral("txtMealName"));
    txtMealName->setMaxLength(30);
    cboCategory = new QComboBox(this);
    cboCategory->setObjectName(QStringLiteral("cboCategory"));
    cboCategory->setEditable(true);
    cboCategory->setInsertPolicy(QComboBox::NoInsert);
    cboCategory->addItem(kPick);
    Trap(QStringLiteral("frmNewMealName.Form_Load"), [&] {
        Recordset rs;
        rs.Open(QStringLiteral("SELECT * FROM MealCategory ORDER BY [Category]"), ConnectionMain(), adOpenForwardOnly,
                adLockReadOnly);
        for (; !rs.IsEOF(); rs.MoveNext()) cboCategory->addItem(TextOf(rs.Field(QStringLiteral("Category"))));
    });
    cmdSaveMeal = new QPushButton(QStringLiteral("&Save"), this);
    cmdSaveMeal->setObjectName(QStringLiteral("cmdSaveMeal"));
    cmdSaveMeal->setDefault(true);
    cmdCancel = new QPushButton(QStringLiteral("&Cancel"), this);
    auto* form = new QFormLayout;
    form->addRow(QStringLiteral("&Name:"), txtMealName);
    form->addRow(QStringLiteral("C&ategory:"), cboCategory);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(cmdSaveMeal);
    buttons->addWidget(cmdCancel);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(note);
    layout->addLayout(form);
    layout->addLayout(buttons);
    setMinimumWidth(380);
    connect(txtMealName, &QLineEdit::editingFinished, this, [this] {
        if (txtMealName->isModified()) {
            txtMealName->setModified(false);
            txtMealName_Validate();
        }
    });
    connect(cmdSaveMeal, &QPushButton::clicked, this, &frmNewMealName::cmdSaveMeal_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
}

QString frmNewMealName::GetMealName(QWidget* parent, const QString& suggested) {
    std::unique_ptr<frmNewMealName> screen(new frmNewMealName(parent));
    screen->txtMealName->setText(suggested);
    if (TheUi().ShowModal(screen.get()) != QDialog::Accepted) return QString();
    return screen->Result();
}

bool frmNewMealName::txtMealName_Validate() {
    const QString name = txtMealName->text();
    // Tree keys are the name after "Meal::" and are split there again.
    if (name.contains(QLatin1String("::"))) {
        MsgBox(QStringLiteral("A Meal Name cannot contain '::'"), Box::Exclamation, QStringLiteral("Notice"));
        return false;
    }
    MainPanes& panes = MainPanes::Instance();
    if (!name.isEmpty() && panes.FindByKey(panes.meals, QStringLiteral("Meal::") + name)) {
        const int answer = MsgBox(name + QStringLiteral(" has already been used, proceeding will cause that Meal to be "
                                                        "replaced.") +
                                      QStringLiteral("\n") + QStringLiteral("Do you wish to continue?"),
                                  Box::YesNo + Box::Question, QStringLiteral("Replace Meal"));
        if (answer == Answer::No) {
            txtMealName->clear();
            return false;
        }
    }
    validated_ = name;
    return true;
}

void frmNewMealName::cmdSaveMeal_Click() {
    if (txtMealName->text() != validated_ && !txtMealName_Validate()) return;
    const QString name = txtMealName->text().trimmed();
    if (name.isEmpty()) {
        txtMealName->setFocus();
        return;
    }
    const QString category = cboCategory->currentText().trimmed();
    if (category == kPick || category.isEmpty()) {
        MsgBox(QStringLiteral("Please enter a new Category for this Meal or select on from the List."),
               Box::Exclamation);
        return;
    }
    if (cboCategory->findText(category, Qt::MatchFixedString) < 0) {
        Trap(QStringLiteral("frmNewMealName.cmdSaveMeal"), [&] {
            Recordset rs;
            rs.Open(QStringLiteral("SELECT * FROM MealCategory"), ConnectionMain(), adOpenKeyset, adLockOptimistic);
            rs.AddNew();
            rs.setField(QStringLiteral("Category"), category);
            rs.Update();
        });
        cboCategory->addItem(category);
    }
    if (clsMeal().Exists(name)) {
        MsgBox(QStringLiteral("The name you have selected for this Meal already exists, please enter a new Name for "
                              "this Meal."),
               Box::Exclamation);
        return;
    }
    result_ = name + QStringLiteral("%%") + category;
    accept();
}
