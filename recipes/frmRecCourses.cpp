#include "recipes/frmRecCourses.h"

#include "core/ErrorReport.h"
#include "core/Globals.h"
#include "core/Values.h"
#include "platform/Recordset.h"
#include "platform/Ui.h"
#include "recipes/clsCourses.h"

#include <QApplication>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

const QString kAppetizer = QStringLiteral("Appetizer");
const QString kMainCourse = QStringLiteral("Main Course");
const QString kDesert = QStringLiteral("Desert");

QListWidget* List(const QString& name, QWidget* parent) {
    auto* list = new QListWidget(parent);
    list->setObjectName(name);
    list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    list->setSortingEnabled(true);
    return list;
}

QStringList Items(const QListWidget* list) {
    QStringList out;
    for (int i = 0; i < list->count(); ++i) out << list->item(i)->text();
    return out;
}

}  // namespace

frmRecCourses::frmRecCourses(QWidget* parent) : GuardedDialog(parent) {
    setObjectName(QStringLiteral("frmRecCourses"));
    setWindowTitle(QStringLiteral("Course Mapping"));
    lstCategories = List(QStringLiteral("lstCategories"), this);
    lstAppetizers = List(QStringLiteral("lstAppetizers"), this);
    lstMainCourses = List(QStringLiteral("lstMainCourses"), this);
    lstDeserts = List(QStringLiteral("lstDeserts"), this);
    auto button = [this](const char* name, const QString& caption) {
        auto* b = new QPushButton(caption, this);
        b->setObjectName(QString::fromLatin1(name));
        b->setAutoDefault(false);
        return b;
    };
    cmdAddAppetizer = button("cmdAddAppetizer", QStringLiteral("Appetizer >>"));
    cmdAddMainCourse = button("cmdAddMainCourse", QStringLiteral("Main Course >>"));
    cmdAddDeserts = button("cmdAddDeserts", QStringLiteral("Desert >>"));
    cmdRemove = button("cmdRemove", QStringLiteral("<< &Remove"));
    cmdResetAll = button("cmdResetAll", QStringLiteral("Reset &All"));
    cmdSave = button("cmdSave", QStringLiteral("&Save"));
    cmdClose = button("cmdClose", QStringLiteral("&Close"));
    lblStatus = new QLabel(this);
    lblStatus->setObjectName(QStringLiteral("lblStatus"));

    auto* grid = new QGridLayout;
    grid->addWidget(new QLabel(QStringLiteral("Categories"), this), 0, 0);
    grid->addWidget(lstCategories, 1, 0, 5, 1);
    auto* moves = new QVBoxLayout;
    moves->addStretch(1);
    for (QPushButton* b : {cmdAddAppetizer, cmdAddMainCourse, cmdAddDeserts, cmdRemove}) moves->addWidget(b);
    moves->addStretch(1);
    grid->addLayout(moves, 1, 1, 5, 1);
    grid->addWidget(new QLabel(QStringLiteral("Appetizers"), this), 0, 2);
    grid->addWidget(lstAppetizers, 1, 2);
    grid->addWidget(new QLabel(QStringLiteral("Main Courses"), this), 2, 2);
    grid->addWidget(lstMainCourses, 3, 2);
    grid->addWidget(new QLabel(QStringLiteral("Deserts"), this), 4, 2);
    grid->addWidget(lstDeserts, 5, 2);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(lblStatus, 1);
    buttons->addWidget(cmdResetAll);
    buttons->addWidget(cmdSave);
    buttons->addWidget(cmdClose);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(grid, 1);
    layout->addLayout(buttons);

    connect(cmdAddAppetizer, &QPushButton::clicked, this, &frmRecCourses::cmdAddAppetizer_Click);
    connect(cmdAddMainCourse, &QPushButton::clicked, this, &frmRecCourses::cmdAddMainCourse_Click);
    connect(cmdAddDeserts, &QPushButton::clicked, this, &frmRecCourses::cmdAddDeserts_Click);
    connect(cmdRemove, &QPushButton::clicked, this, &frmRecCourses::cmdRemove_Click);
    connect(cmdResetAll, &QPushButton::clicked, this, &frmRecCourses::cmdResetAll_Click);
    connect(cmdSave, &QPushButton::clicked, this, &frmRecCourses::cmdSave_Click);
    connect(cmdClose, &QPushButton::clicked, this, &GuardedDialog::CloseChecked);
    resize(560, 480);
    LoadCategories();
}

void frmRecCourses::LoadCategories() {
    for (QListWidget* l : {lstCategories, lstAppetizers, lstMainCourses, lstDeserts}) l->clear();
    QMap<QString, QString> mapped;
    Trap(QStringLiteral("frmRecCourses.LoadCourses"), [&] {
        Recordset rs;
        rs.Open(QStringLiteral("SELECT * FROM Course"), ConnectionMain(), adOpenForwardOnly, adLockReadOnly);
        for (; !rs.IsEOF(); rs.MoveNext())
            mapped.insert(TextOf(rs.Field(QStringLiteral("Category"))), TextOf(rs.Field(QStringLiteral("Course"))));
    });
    int categories = 0;
    Trap(QStringLiteral("frmRecCourses.LoadCategories"), [&] {
        Recordset rs;
        rs.Open(QStringLiteral("SELECT * FROM RecipieCategory"), ConnectionMain(), adOpenForwardOnly, adLockReadOnly);
        for (; !rs.IsEOF(); rs.MoveNext(), ++categories) {
            const QString name = TextOf(rs.Field(QStringLiteral("Name")));
            const QString course = mapped.value(name);
            QListWidget* list = course == kAppetizer    ? lstAppetizers
                                : course == kMainCourse ? lstMainCourses
                                : course == kDesert     ? lstDeserts
                                                        : lstCategories;
            list->addItem(name);
        }
    });
    if (categories == 0)
        MsgBox(QStringLiteral("There are no Items to sort, either enter in Recipes or Recipe Categories."),
               Box::Information);
    changed_ = false;
}

void frmRecCourses::MoveTo(QListWidget* target) {
    const QList<QListWidgetItem*> chosen = lstCategories->selectedItems();
    if (chosen.isEmpty()) {
        MsgBox(QStringLiteral("You must first select an Item before moving it."), Box::Exclamation);
        return;
    }
    for (QListWidgetItem* item : chosen) target->addItem(lstCategories->takeItem(lstCategories->row(item)));
    changed_ = true;
}

void frmRecCourses::cmdAddAppetizer_Click() { MoveTo(lstAppetizers); }
void frmRecCourses::cmdAddMainCourse_Click() { MoveTo(lstMainCourses); }
void frmRecCourses::cmdAddDeserts_Click() { MoveTo(lstDeserts); }

void frmRecCourses::cmdRemove_Click() {
    for (QListWidget* list : {lstAppetizers, lstMainCourses, lstDeserts})
        for (QListWidgetItem* item : list->selectedItems()) {
            lstCategories->addItem(list->takeItem(list->row(item)));
            changed_ = true;
        }
}

void frmRecCourses::cmdResetAll_Click() {
    if (MsgBox(QStringLiteral("This will reset all of the Category/Course mappings, Are you sure?"),
               Box::YesNo + Box::Question, QStringLiteral("Confirm")) != Answer::Yes)
        return;
    for (QListWidget* list : {lstAppetizers, lstMainCourses, lstDeserts})
        while (list->count() > 0) lstCategories->addItem(list->takeItem(0));
    changed_ = true;
}

void frmRecCourses::cmdSave_Click() {
    auto status = [this](const QString& text) {
        lblStatus->setText(text);
        lblStatus->repaint();
    };
    Trap(QStringLiteral("frmRecCourses.cmdSave_Click"), [&] {
        clsCourses courses;
        status(QStringLiteral("Clearing Courses ..."));
        courses.ClearAll();
        const struct {
            QListWidget* list;
            const QString& course;
            const char* label;
        } groups[] = {{lstAppetizers, kAppetizer, "Saving Appetizers for "},
                      {lstMainCourses, kMainCourse, "Saving Main Courses for "},
                      {lstDeserts, kDesert, "Saving Deserts for "}};
        for (const auto& g : groups)
            for (const QString& category : Items(g.list)) {
                status(QString::fromLatin1(g.label) + category + QStringLiteral(" ..."));
                courses.WriteNew(category, g.course);
            }
        changed_ = false;
    });
    status(QString());
}

bool frmRecCourses::MayClose() {
    if (!changed_) return true;
    const int answer = MsgBox(QStringLiteral("Do you wish to save the changes before exiting?"),
                              Box::YesNoCancel + Box::Question, QStringLiteral("Save Changes"));
    if (answer == Answer::Cancel) return false;
    if (answer == Answer::Yes) cmdSave_Click();
    return true;
}
