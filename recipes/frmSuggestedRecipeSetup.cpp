#include "recipes/frmSuggestedRecipeSetup.h"

#include "core/ErrorReport.h"
#include "core/Globals.h"
#include "core/Values.h"
#include "platform/Database.h"
#include "platform/Recordset.h"
#include "platform/Ui.h"
#include "recipes/frmSuggestedRecipes.h"
#include "recipes/modSuggest.h"

#include <QApplication>
#include <QCheckBox>
#include <QEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {
const QString kPrompt = QStringLiteral("< Enter Keywords >");
}

frmSuggestedRecipeSetup::frmSuggestedRecipeSetup(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmSuggestedRecipeSetup"));
    setWindowTitle(QStringLiteral("Suggestions Options"));

    auto* sources = new QGroupBox(QStringLiteral("Suggestions"), this);
    optEntered = new QRadioButton(QStringLiteral("Get suggestions based on what I &enter here."), sources);
    optHistory = new QRadioButton(QStringLiteral("Get suggestions based on what I have selected in the &past."), sources);
    optPreferences =
        new QRadioButton(QStringLiteral("Get Suggestions based on the &preferences that I have entered."), sources);
    optEntered->setChecked(true);
    auto* sourceLayout = new QVBoxLayout(sources);
    for (QRadioButton* b : {optEntered, optHistory, optPreferences}) sourceLayout->addWidget(b);

    txtKeywords = new QLineEdit(kPrompt, this);
    txtKeywords->setObjectName(QStringLiteral("txtKeywords"));
    txtKeywords->installEventFilter(this);
    lbCategories = new QListWidget(this);
    lbCategories->setObjectName(QStringLiteral("lbCategories"));
    lbCategories->setSelectionMode(QAbstractItemView::MultiSelection);
    Trap(QStringLiteral("frmSuggestedRecipeSetup.Form_Load"), [&] {
        Recordset rs;
        rs.Open(QStringLiteral("SELECT * FROM RecipieCategory"), ConnectionMain(), adOpenForwardOnly, adLockReadOnly);
        QStringList names;
        for (; !rs.IsEOF(); rs.MoveNext()) names << TextOf(rs.Field(QStringLiteral("Name")));
        lbCategories->addItems(names);
    });
    cmdSelection = new QPushButton(QStringLiteral("&Select All"), this);

    Slider1 = new QSlider(Qt::Horizontal, this);
    Slider1->setObjectName(QStringLiteral("Slider1"));
    Slider1->setRange(0, 100);
    Slider1->setValue(50);
    lblHitPercent = new QLabel(QStringLiteral("50%"), this);
    lblHitPercent->setMinimumWidth(lblHitPercent->fontMetrics().horizontalAdvance(QStringLiteral("100%")) + 4);

    frOptions = new QGroupBox(QStringLiteral("Options"), this);
    chkLimitCategories = new QCheckBox(QStringLiteral("&Limit to the categories selected"), frOptions);
    chkFavoritesOnly = new QCheckBox(QStringLiteral("&Favorites only"), frOptions);
    chkUsedBefore = new QCheckBox(QStringLiteral("Recipes &used before only"), frOptions);
    auto* optionLayout = new QVBoxLayout(frOptions);
    for (QCheckBox* c : {chkLimitCategories, chkFavoritesOnly, chkUsedBefore}) optionLayout->addWidget(c);
    frOptions->setVisible(false);

    cmdOptions = new QPushButton(QStringLiteral("Show &Options"), this);
    cmdMoreOptions = new QPushButton(QStringLiteral("&More Options"), this);
    cmdGo = new QPushButton(QStringLiteral("&Go"), this);
    cmdGo->setDefault(true);
    cmdCancel = new QPushButton(QStringLiteral("&Cancel"), this);

    auto* grid = new QGridLayout;
    auto* keywordLabel = new QLabel(QStringLiteral("&Keywords:"), this);
    keywordLabel->setBuddy(txtKeywords);
    grid->addWidget(keywordLabel, 0, 0);
    grid->addWidget(txtKeywords, 0, 1, 1, 2);
    auto* categoryLabel = new QLabel(QStringLiteral("C&ategories:"), this);
    categoryLabel->setBuddy(lbCategories);
    grid->addWidget(categoryLabel, 1, 0, Qt::AlignTop);
    grid->addWidget(lbCategories, 1, 1, 2, 1);
    grid->addWidget(cmdSelection, 1, 2, Qt::AlignTop);
    auto* percentLabel = new QLabel(QStringLiteral("Show &above:"), this);
    percentLabel->setBuddy(Slider1);
    grid->addWidget(percentLabel, 3, 0);
    grid->addWidget(Slider1, 3, 1);
    grid->addWidget(lblHitPercent, 3, 2);
    grid->setColumnStretch(1, 1);

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(cmdOptions);
    buttons->addWidget(cmdMoreOptions);
    buttons->addStretch(1);
    buttons->addWidget(cmdGo);
    buttons->addWidget(cmdCancel);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(sources);
    layout->addLayout(grid);
    layout->addWidget(frOptions);
    layout->addLayout(buttons);
    resize(520, 460);

    connect(cmdGo, &QPushButton::clicked, this, &frmSuggestedRecipeSetup::cmdGo_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(cmdSelection, &QPushButton::clicked, this, &frmSuggestedRecipeSetup::cmdSelection_Click);
    connect(cmdOptions, &QPushButton::clicked, this, &frmSuggestedRecipeSetup::cmdOptions_Click);
    connect(cmdMoreOptions, &QPushButton::clicked, this, &frmSuggestedRecipeSetup::cmdMoreOptions_Click);
    connect(Slider1, &QSlider::valueChanged, this, &frmSuggestedRecipeSetup::Slider1_Change);
    for (QRadioButton* b : {optEntered, optHistory, optPreferences})
        connect(b, &QRadioButton::toggled, this, &frmSuggestedRecipeSetup::SourceChanged);
}

bool frmSuggestedRecipeSetup::eventFilter(QObject* watched, QEvent* event) {
    if (watched == txtKeywords) {
        if (event->type() == QEvent::FocusIn && txtKeywords->text() == kPrompt) txtKeywords->clear();
        if (event->type() == QEvent::FocusOut && txtKeywords->text().isEmpty()) txtKeywords->setText(kPrompt);
    }
    return QDialog::eventFilter(watched, event);
}

void frmSuggestedRecipeSetup::SourceChanged() {
    // The sources differ only in what can be entered; the scoring is one.
    txtKeywords->setEnabled(optEntered->isChecked());
    lbCategories->setEnabled(!optHistory->isChecked());
    cmdSelection->setEnabled(!optHistory->isChecked());
}

void frmSuggestedRecipeSetup::cmdSelection_Click() {
    const bool selectAll = cmdSelection->text() == QLatin1String("&Select All");
    if (selectAll)
        lbCategories->selectAll();
    else
        lbCategories->clearSelection();
    cmdSelection->setText(selectAll ? QStringLiteral("De-&Select All") : QStringLiteral("&Select All"));
}

void frmSuggestedRecipeSetup::cmdOptions_Click() {
    const bool show = frOptions->isHidden();
    frOptions->setVisible(show);
    cmdOptions->setText(show ? QStringLiteral("Hide &Options") : QStringLiteral("Show &Options"));
}

void frmSuggestedRecipeSetup::cmdMoreOptions_Click() {
    MsgBox(QStringLiteral("This feature will be added soon!"), Box::Information, QStringLiteral("Coming Soon"));
}

void frmSuggestedRecipeSetup::Slider1_Change(int value) { lblHitPercent->setText(QString::number(value) + "%"); }

void frmSuggestedRecipeSetup::cmdGo_Click() {
    const QString keywords = txtKeywords->text() == kPrompt ? QString() : txtKeywords->text();
    QStringList categories;
    for (int i = 0; i < lbCategories->count(); ++i)
        if (lbCategories->item(i)->isSelected()) categories << lbCategories->item(i)->text();
    auto* results = new frmSuggestedRecipes(MainWindow());
    results->setAttribute(Qt::WA_DeleteOnClose);
    bool found = false;
    GetSuggestions(results->lvSuggestions, keywords, categories, chkLimitCategories->isChecked(),
                   chkFavoritesOnly->isChecked(), chkUsedBefore->isChecked(), qint16(Slider1->value()), found);
    if (found) {
        results->Loaded();
        if (results_) results_->close();
        results_ = results;
        TheUi().ShowModeless(results, MainWindow());
    } else {
        delete results;
        MsgBox(QStringLiteral("There is not enough data to generate a good suggestion"), Box::Exclamation,
               QStringLiteral("Not enough information"));
    }
}
