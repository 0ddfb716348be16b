#include "meals/frmNewMeal.h"

#include "core/ChangeNotices.h"
#include "core/Dates.h"
#include "core/ErrorReport.h"
#include "core/Globals.h"
#include "core/PaneIcons.h"
#include "core/Values.h"
#include "core/clsRegistry.h"
#include "meals/clsMeal.h"
#include "meals/clsGuestServed.h"
#include "meals/frmNewMealName.h"
#include "platform/Clock.h"
#include "platform/Database.h"
#include "platform/Recordset.h"
#include "platform/Ui.h"
#include "recipes/PackedIngredient.h"
#include "recipes/clsRecipies.h"

#include <QAction>
#include <QCalendarWidget>
#include <QDialogButtonBox>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QHBoxLayout>
#include <QHash>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QMimeData>
#include <QSplitter>
#include <QToolBar>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <memory>

namespace {

// The one kind of drag the program's recipe trees make, whichever window
// they are in.
const QString kRecipeMime = QStringLiteral("application/x-larderkeep-recipe");
const QString kRecipeTag = QStringLiteral("Recipe Title");
const QString kCourseTag = QStringLiteral("Course");
const QColor kCourseColour(100, 100, 100);

struct Mealtime {
    const char* word;    // as a row's Meal column holds it
    const char* keyed;   // as the node keys and course tags spell it
    char letter;
};
const Mealtime kMealtimes[] = {{"Breakfast", "BreakFast", 'B'}, {"Lunch", "Lunch", 'L'}, {"Dinner", "Dinner", 'D'}};

struct Course {
    const char* path;   // last part of the tag
    const char* label;  // the empty course's text
    char letter;
};
const Course kCourses[] = {{"Appetizer", "Appetizer:", 'A'}, {"Main Course", "Main Course:", 'M'},
                           {"Desert", "Dessert:", 'D'}};

QString Key(const QTreeWidgetItem* node) { return node->data(0, frmNewMeal::KeyRole).toString(); }
QString Tag(const QTreeWidgetItem* node) { return node->data(0, frmNewMeal::TagRole).toString(); }

QTreeWidgetItem* Node(const QString& key, const QString& text, const QString& tag, const QString& image) {
    auto* node = new QTreeWidgetItem(QStringList(text));
    node->setData(0, frmNewMeal::KeyRole, key);
    node->setData(0, frmNewMeal::TagRole, tag);
    if (!image.isEmpty()) node->setIcon(0, PaneIcon(image));
    return node;
}

QString LabelOf(const QTreeWidgetItem* course) {
    const QString last = Tag(course).section(QStringLiteral("//"), 2);
    for (const Course& c : kCourses)
        if (last == QLatin1String(c.path)) return QString::fromLatin1(c.label);
    return QString();
}

bool IsCourse(const QTreeWidgetItem* node) { return node && !LabelOf(node).isEmpty(); }

QString MealtimeWord(const QString& keyed) {
    for (const Mealtime& m : kMealtimes)
        if (keyed.compare(QLatin1String(m.keyed), Qt::CaseInsensitive) == 0) return QString::fromLatin1(m.word);
    return keyed;
}

// Numbers as the running list writes them: no trailing zeros.
QString NumberText(double value) { return QString::number(value, 'g', 12); }

// A course that holds a recipe carries the recipe's picture, so a planned
// course stands out from an empty one among the grey course lines.
void MarkCourse(QTreeWidgetItem* course, bool holds) {
    course->setIcon(0, holds ? PaneIcon(QStringLiteral("Recipe")) : QIcon());
}

// Recipe trees hand out the dragged recipe's title in the program's own kind.
class RecipeTree : public QTreeWidget {
public:
    using QTreeWidget::QTreeWidget;

protected:
    QStringList mimeTypes() const override { return {kRecipeMime}; }
    QMimeData* mimeData(const QList<QTreeWidgetItem*>& items) const override {
        if (items.isEmpty() || Tag(items.first()) != kRecipeTag) return nullptr;
        auto* mime = new QMimeData;
        mime->setData(kRecipeMime, items.first()->text(0).toUtf8());
        mime->setText(items.first()->text(0));
        return mime;
    }
};

QString DroppedTitle(const QMimeData* mime) {
    if (!mime || !mime->hasFormat(kRecipeMime)) return QString();
    return QString::fromUtf8(mime->data(kRecipeMime));
}

}  // namespace

QPointer<frmNewMeal> frmNewMeal::open_;

frmNewMeal::frmNewMeal(QWidget* parent) : GuardedDialog(parent) {
    setObjectName(QStringLiteral("frmNewMeal"));
    setWindowTitle(QStringLiteral("Meal Planner"));
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    BuildLayout();
    Trap(QStringLiteral("frmNewMeal.Form_Load"), [&] {
        LoadRecipes(ByCourse);
        LoadGuests();
    });
    EnableListButtons();
    resize(1100, 680);
}

frmNewMeal::~frmNewMeal() {
    // An unsaved plan that goes with its window no longer holds any meal.
    if (changed_) SetMealBeingEdited(false);
}

void frmNewMeal::BuildLayout() {
    auto makeTree = [this](const QString& name, bool recipes) {
        QTreeWidget* tree = recipes ? new RecipeTree(this) : new QTreeWidget(this);
        tree->setObjectName(name);
        tree->setUniformRowHeights(true);
        tree->setContextMenuPolicy(Qt::CustomContextMenu);
        tree->viewport()->installEventFilter(this);
        return tree;
    };
    tvRecipes = makeTree(QStringLiteral("tvRecipes"), true);
    tvRecipes->setHeaderLabel(QStringLiteral("Recipes"));
    tvRecipes->setDragEnabled(true);
    tvRecipes->setAcceptDrops(true);
    tvRecipes->setDragDropMode(QAbstractItemView::DragDrop);
    tvMealList = makeTree(QStringLiteral("tvMealList"), false);
    tvMealList->setHeaderLabel(QStringLiteral("Meals"));
    tvMealList->setAcceptDrops(true);
    tvMealList->setDragDropMode(QAbstractItemView::DropOnly);
    tvMealList->setAutoExpandDelay(600);
    for (QTreeWidget* tree : {tvRecipes, tvMealList}) tree->setHeaderHidden(true);

    lvShoppingList = makeTree(QStringLiteral("lvShoppingList"), false);
    lvShoppingList->setRootIsDecorated(false);
    lvShoppingList->setHeaderLabels({QStringLiteral("Item"), QStringLiteral("Qty"), QStringLiteral("Manufacturer"),
                                     QStringLiteral("Size"), QStringLiteral("Style"), QStringLiteral("Cpn")});
    lvShoppingList->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    lvShoppingList->header()->setStretchLastSection(false);
    lvGuests = makeTree(QStringLiteral("lvGuests"), false);
    lvGuests->setRootIsDecorated(false);
    lvGuests->setHeaderLabel(QStringLiteral("Guests"));
    lvGuests->setHeaderHidden(true);

    auto toolbar = [this](const QString& name, const QList<QPair<QString, QString>>& keys, auto handler) {
        auto* bar = new QToolBar(this);
        bar->setObjectName(name);
        bar->setToolButtonStyle(Qt::ToolButtonTextOnly);
        for (const auto& [key, caption] : keys) {
            QAction* action = bar->addAction(caption);
            action->setObjectName(key);
            connect(action, &QAction::triggered, this, [this, key, handler] { (this->*handler)(key); });
        }
        return bar;
    };
    tbMeal = toolbar(QStringLiteral("tbMeal"),
                     {{"MealDates", "Add &Dates"}, {"Save", "&Save"}, {"Open", "&Open"}, {"CreateMeal", "Special Item"},
                      {"Categories", "Categories"}, {"CourseMap", "Course Map"}, {"Coupon", "Coupons"},
                      {"Delivery", "Delivery"}, {"Nutrition", "Nutrition"}, {"WeeklyMeals", "Weekly"},
                      {"Daily Meals", "Daily"}, {"MealSuggestion", "Suggest"}, {"Help", "Help"}, {"Close", "&Close"}},
                     &frmNewMeal::tbMeal_ButtonClick);
    tbShopList = toolbar(QStringLiteral("tbShopList"),
                         {{"SaveList", "Save List"}, {"PrintList", "Print List"}, {"Clear", "Clear"}},
                         &frmNewMeal::tbShopList_ButtonClick);
    tbGuests = toolbar(QStringLiteral("tbGuests"), {{"AddGuest", "Add Guest"}}, &frmNewMeal::tbGuests_ButtonClick);

    auto column = [this](const QString& title, QWidget* top, QWidget* body) {
        auto* box = new QWidget(this);
        auto* layout = new QVBoxLayout(box);
        layout->setContentsMargins(0, 0, 0, 0);
        auto* label = new QLabel(QStringLiteral("<b>") + title + QStringLiteral("</b>"), box);
        layout->addWidget(label);
        if (top) layout->addWidget(top);
        layout->addWidget(body, 1);
        return box;
    };
    auto* right = new QSplitter(Qt::Vertical, this);
    right->addWidget(column(QStringLiteral("Shopping List"), tbShopList, lvShoppingList));
    right->addWidget(column(QStringLiteral("Guests"), tbGuests, lvGuests));
    right->setStretchFactor(0, 3);
    right->setStretchFactor(1, 1);
    auto* split = new QSplitter(Qt::Horizontal, this);
    split->addWidget(column(QStringLiteral("Recipes"), nullptr, tvRecipes));
    split->addWidget(column(QStringLiteral("Meal Plan"), nullptr, tvMealList));
    split->addWidget(right);
    split->setSizes({300, 360, 440});
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(tbMeal);
    layout->addWidget(split, 1);

    // The pop-ups.
    auto menu = [this](const QList<QPair<QString, QString>>& entries) {
        auto* m = new QMenu(this);
        for (const auto& [name, caption] : entries) m->addAction(caption)->setObjectName(name);
        return m;
    };
    mealMenu_ = menu({{"mnuSaveMealAs", "Save Meal &As..."},
                      {"mnuSaveCourseAsMeal", "Save &Course as Meal..."},
                      {"mnuRemoveRecipeFromMeal", "&Remove Recipe from Meal"},
                      {"mnuRenameMeal", "Re&name Meal..."},
                      {"mnuChangeDate", "Change &Date..."},
                      {"mnuDeleteMeal", "De&lete Meal"},
                      {"mnuToggleFavoriteMeal", "Toggle &Favorite"},
                      {"mnuExpandView", "&Expand All"},
                      {"mnuPurgeOldMeals", "&Purge Old Meals..."}});
    recipeMenu_ = menu({{"mnuDisplayRecipe", "&Display Recipe"},
                        {"mnuGroupRecipesByCourse", "Group by &Course"},
                        {"mnuGroupRecipesByCategory", "Group by Course and Cate&gory"}});
    listMenu_ = menu({{"mnuListItemDelete", "&Delete Item"}});
    const QHash<QString, void (frmNewMeal::*)()> handlers{
        {"mnuSaveMealAs", &frmNewMeal::mnuSaveMealAs_Click},
        {"mnuSaveCourseAsMeal", &frmNewMeal::mnuSaveCourseAsMeal_Click},
        {"mnuRemoveRecipeFromMeal", &frmNewMeal::mnuRemoveRecipeFromMeal_Click},
        {"mnuRenameMeal", &frmNewMeal::mnuRenameMeal_Click},
        {"mnuChangeDate", &frmNewMeal::mnuChangeDate_Click},
        {"mnuDeleteMeal", &frmNewMeal::mnuDeleteMeal_Click},
        {"mnuToggleFavoriteMeal", &frmNewMeal::mnuToggleFavoriteMeal_Click},
        {"mnuExpandView", &frmNewMeal::mnuExpandView_Click},
        {"mnuPurgeOldMeals", &frmNewMeal::mnuPurgeOldMeals_Click},
        {"mnuDisplayRecipe", &frmNewMeal::mnuDisplayRecipe_Click},
        {"mnuListItemDelete", &frmNewMeal::mnuListItemDelete_Click}};
    for (QMenu* m : {mealMenu_, recipeMenu_, listMenu_})
        for (QAction* a : m->actions()) {
            if (handlers.contains(a->objectName())) connect(a, &QAction::triggered, this, handlers.value(a->objectName()));
        }
    connect(recipeMenu_->actions().at(1), &QAction::triggered, this, [this] { LoadRecipes(ByCourse); });
    connect(recipeMenu_->actions().at(2), &QAction::triggered, this, [this] { LoadRecipes(ByCourseAndCategory); });
    auto popup = [this](QTreeWidget* tree, QMenu* m) {
        connect(tree, &QWidget::customContextMenuRequested, this, [tree, m](const QPoint& at) {
            if (QTreeWidgetItem* node = tree->itemAt(at)) tree->setCurrentItem(node);
            m->popup(tree->viewport()->mapToGlobal(at));
        });
    };
    popup(tvMealList, mealMenu_);
    popup(tvRecipes, recipeMenu_);
    popup(lvShoppingList, listMenu_);
    connect(lvGuests, &QTreeWidget::itemChanged, this, &frmNewMeal::lvGuests_ItemCheck);
    connect(tvRecipes, &QTreeWidget::itemDoubleClicked, this, [this] { mnuDisplayRecipe_Click(); });
}

frmNewMeal* frmNewMeal::Open() {
    if (!open_) {
        open_ = new frmNewMeal(MainWindow());
        open_->setAttribute(Qt::WA_DeleteOnClose);
        TheUi().ShowModeless(open_, MainWindow());
    }
    open_->raise();
    open_->activateWindow();
    return open_;
}

QTreeWidgetItem* frmNewMeal::OpenForDate(const QDate& day) {
    frmNewMeal* planner = Open();
    const QString name = Format(QVariant(day), QStringLiteral("dddd, mmm d yyyy"));
    if (QTreeWidgetItem* there = planner->FindMeal(name)) return there;
    const int before = planner->tvMealList->topLevelItemCount();
    planner->AddMealDates(Format(QVariant(day), QStringLiteral("mm/dd/yyyy")));
    return planner->tvMealList->topLevelItemCount() > before ? planner->FindMeal(name) : nullptr;
}

QTreeWidgetItem* frmNewMeal::OpenForMeal(const QString& name) {
    frmNewMeal* planner = Open();
    QString date;
    Trap(QStringLiteral("NewMeal.CreateEmptyNode"), [&] {
        Recordset rs;
        rs.Open(QStringLiteral("SELECT [Dates] FROM Meal WHERE [Name] = '") + name + QStringLiteral("'"),
                ConnectionMain(), adOpenForwardOnly, adLockReadOnly);
        if (!rs.IsEOF()) date = TextOf(rs.Field(QStringLiteral("Dates")));
    });
    return planner->CreateEmptyNode(name, true, date);
}

void frmNewMeal::LoadRecipes(int grouping) {
    tvRecipes->clear();
    QList<QTreeWidgetItem*> courses;
    QHash<QString, QTreeWidgetItem*> byCourse;
    for (const Course& c : kCourses) {
        auto* node = Node(QString::fromLatin1(c.path), QString::fromLatin1(c.path), kCourseTag, QStringLiteral("Meal"));
        byCourse.insert(QString::fromLatin1(c.path).toCaseFolded(), node);
        courses << node;
    }
    QTreeWidgetItem* unassigned = Node(QStringLiteral("UN"), QStringLiteral("Unassigned"), QString(), QStringLiteral("Meal"));
    courses << unassigned;
    const QIcon favourite = PaneIcon(QStringLiteral("RecipeFavorite"));
    const QIcon plain = PaneIcon(QStringLiteral("Recipe"));
    QHash<QTreeWidgetItem*, QList<QTreeWidgetItem*>> children;
    QHash<QString, QTreeWidgetItem*> categories;  // course key + category, folded
    QList<QTreeWidgetItem*> categoryOrder;

    Recordset rs;
    rs.Open(QStringLiteral("SELECT [Title],[Course],[Style],[Favorite] FROM Recipie ORDER BY [Title]"),
            ConnectionMain(), adOpenForwardOnly, adLockReadOnly);
    for (; !rs.IsEOF(); rs.MoveNext()) {
        const QString title = TextOf(rs.Field(QStringLiteral("Title")));
        QTreeWidgetItem* course = byCourse.value(TextOf(rs.Field(QStringLiteral("Course"))).trimmed().toCaseFolded(),
                                                 unassigned);
        const QVariant mark = rs.Field(QStringLiteral("Favorite"));
        const bool isFavourite = !IsNull(mark) && !IsEmpty(mark) && CBool(mark);
        auto recipeNode = [&] {
            auto* node = Node(title, title, kRecipeTag, QString());
            node->setIcon(0, isFavourite ? favourite : plain);
            return node;
        };
        if (grouping != ByCourseAndCategory) {
            children[course] << recipeNode();
            continue;
        }
        QStringList names;
        for (const QString& part : TextOf(rs.Field(QStringLiteral("Style"))).split(QLatin1Char(','))) {
            if (!part.trimmed().isEmpty()) names << part.trimmed();
        }
        if (names.isEmpty()) names << QStringLiteral("Unassigned");
        for (const QString& name : names) {
            const QString key = Key(course) + QStringLiteral("//") + name.toCaseFolded();
            QTreeWidgetItem*& category = categories[key];
            if (!category) {
                category = Node(key, name, QStringLiteral("RecipeCategory"), QString());
                QFont bold = category->font(0);
                bold.setBold(true);
                category->setFont(0, bold);
                children[course] << category;
                categoryOrder << category;
            }
            children[category] << recipeNode();
        }
    }
    for (QTreeWidgetItem* category : categoryOrder) category->addChildren(children.value(category));
    for (QTreeWidgetItem* course : courses) {
        QFont bold = course->font(0);
        bold.setBold(true);
        course->setFont(0, bold);
        course->addChildren(children.value(course));
    }
    tvRecipes->addTopLevelItems(courses);
    tvRecipes->setProperty("grouping", grouping);
}

void frmNewMeal::LoadGuests() {
    loadingGuests_ = true;
    lvGuests->clear();
    Recordset rs;
    rs.Open(QStringLiteral("SELECT * FROM Guests ORDER BY [GuestName]"), ConnectionMain(), adOpenForwardOnly,
            adLockReadOnly);
    for (; !rs.IsEOF(); rs.MoveNext()) {
        auto* guest = new QTreeWidgetItem(QStringList(TextOf(rs.Field(QStringLiteral("GuestName")))));
        guest->setFlags(guest->flags() | Qt::ItemIsUserCheckable);
        guest->setCheckState(0, Qt::Unchecked);
        lvGuests->addTopLevelItem(guest);
    }
    loadingGuests_ = false;
}

QTreeWidgetItem* frmNewMeal::FindMeal(const QString& name) const {
    const QString key = QStringLiteral("Meal::") + name;
    for (int i = 0; i < tvMealList->topLevelItemCount(); ++i)
        if (Key(tvMealList->topLevelItem(i)) == key) return tvMealList->topLevelItem(i);
    return nullptr;
}

QTreeWidgetItem* frmNewMeal::FindCourse(QTreeWidgetItem* meal, const QString& courseTag) const {
    return Trap(QStringLiteral("NewMeals.FindCourse"), static_cast<QTreeWidgetItem*>(nullptr), [&] {
        if (!meal) return static_cast<QTreeWidgetItem*>(nullptr);
        for (int t = 0; t < meal->childCount(); ++t)
            for (int c = 0; c < meal->child(t)->childCount(); ++c) {
                QTreeWidgetItem* course = meal->child(t)->child(c);
                if (Tag(course).compare(courseTag, Qt::CaseInsensitive) == 0) return course;
            }
        return static_cast<QTreeWidgetItem*>(nullptr);
    });
}

bool frmNewMeal::HoldsRecipe(const QTreeWidgetItem* course) {
    return IsCourse(course) && course->text(0) != LabelOf(course) && !course->text(0).trimmed().isEmpty();
}

QTreeWidgetItem* frmNewMeal::CreateEmptyNode(const QString& name, bool withContents, const QString& date) {
    return Trap(QStringLiteral("NewMeal.CreateEmptyNode"), static_cast<QTreeWidgetItem*>(nullptr), [&] {
        QString shown = name;
        if (IsDate(QVariant(name))) shown = Format(QVariant(CDate(QVariant(name))), QStringLiteral("dddd, mmm d yyyy"));
        if (QTreeWidgetItem* there = FindMeal(shown)) return there;
        QHash<QString, QStringList> saved;  // mealtime -> its three courses
        if (withContents) {
            Recordset rs;
            rs.Open(QStringLiteral("SELECT * FROM Meal WHERE [Name] = '") + shown + QStringLiteral("'"),
                    ConnectionMain(), adOpenForwardOnly, adLockReadOnly);
            for (; !rs.IsEOF(); rs.MoveNext())
                saved.insert(TextOf(rs.Field(QStringLiteral("Meal"))).toCaseFolded(),
                             {TextOf(rs.Field(QStringLiteral("Appetizer"))),
                              TextOf(rs.Field(QStringLiteral("MainCourse"))),
                              TextOf(rs.Field(QStringLiteral("Desert")))});
        }
        const bool favourite = clsMeal().IsFavorite(shown);
        QTreeWidgetItem* root =
            Node(QStringLiteral("Meal::") + shown, shown, date, favourite ? QStringLiteral("MealFavorite") : "Meal");
        QFont bold = root->font(0);
        bold.setBold(true);
        root->setFont(0, bold);
        for (const Mealtime& m : kMealtimes) {
            QTreeWidgetItem* time = Node(QString::fromLatin1(m.keyed) + shown, QString::fromLatin1(m.word), QString(),
                                         QStringLiteral("MealRecipe"));
            const QStringList filled = saved.value(QString::fromLatin1(m.word).toCaseFolded());
            for (int c = 0; c < 3; ++c) {
                const Course& course = kCourses[c];
                QString text = QString::fromLatin1(course.label);
                if (c < filled.size() && !filled[c].trimmed().isEmpty()) text = filled[c];
                QTreeWidgetItem* node =
                    Node(QString(QChar::fromLatin1(m.letter)) + QChar::fromLatin1(course.letter) + shown, text,
                         QStringLiteral("Meal//") + QString::fromLatin1(m.keyed) + QStringLiteral("//") +
                             QString::fromLatin1(course.path),
                         QString());
                node->setForeground(0, kCourseColour);
                MarkCourse(node, text != QString::fromLatin1(course.label));
                time->addChild(node);
            }
            root->addChild(time);
        }
        tvMealList->addTopLevelItem(root);
        root->setExpanded(true);
        // A mealtime that holds recipes always shows them; empty ones open
        // as the setting says, or when a recipe is dragged over them.
        const bool expand = Registry().ExpandNewMealDate();
        for (int t = 0; t < root->childCount(); ++t) {
            QTreeWidgetItem* time = root->child(t);
            bool filled = false;
            for (int c = 0; c < time->childCount(); ++c) filled = filled || HoldsRecipe(time->child(c));
            time->setExpanded(expand || filled);
        }
        // A saved meal brings its recipes onto the running list.
        for (const QString& title : RecipesOf(root)) AdjustShoppingList(title, 2);
        return root;
    });
}

void frmNewMeal::AddMealDates(const QString& dates) {
    if (dates.isEmpty()) return;
    const QDate today = Clock::Today();
    for (const QString& text : dates.split(QStringLiteral("::"))) {
        if (!IsDate(QVariant(text))) continue;
        const QDate day = CDate(QVariant(text)).date();
        const QString shortDate = Format(QVariant(day), QStringLiteral("mm/dd/yy"));
        const QString name = Format(QVariant(day), QStringLiteral("dddd, mmm d yyyy"));
        if (FindMeal(name) || clsMeal().DateTaken(shortDate)) {
            MsgBox(QStringLiteral("The date, ") + text + QStringLiteral(", is already scheduled, Please select another "
                                                                        "date to add."),
                   Box::Exclamation, QStringLiteral("Notice"));
            continue;
        }
        if (day < today) {
            MsgBox(QStringLiteral("That date, ") + text +
                       QStringLiteral(" , is prior to today. Please select another date."),
                   Box::Exclamation, QStringLiteral("Notice"));
            continue;
        }
        CreateEmptyNode(name, false, shortDate);
    }
}

void frmNewMeal::AdjustShoppingList(const QString& title, int mode) {
    Recordset rs;
    rs.Open(QStringLiteral("SELECT * FROM [Recipie] WHERE [Title] = '") + title + QStringLiteral("'"),
            ConnectionMain(), adOpenForwardOnly, adLockReadOnly);
    for (; !rs.IsEOF(); rs.MoveNext()) {
        for (int i = 1; i <= PackedIngredient::LastShownSlot; ++i) {
            const QString packed = TextOf(rs.Field(PackedIngredient::ColumnName(i)));
            if (packed.isEmpty()) continue;
            const PackedIngredient part = PackedIngredient::Parse(packed);
            QTreeWidgetItem* line = nullptr;
            for (int r = 0; r < lvShoppingList->topLevelItemCount() && !line; ++r)
                if (lvShoppingList->topLevelItem(r)->text(colItem) == part.name) line = lvShoppingList->topLevelItem(r);
            const bool newLine = line ? line->text(colSize) != part.unit : mode == 2;
            if (newLine) {
                auto* added = new QTreeWidgetItem;
                added->setText(colItem, part.name);
                added->setText(colQty, part.quantity);
                added->setText(colManufacturer, QStringLiteral("Any"));
                added->setText(colSize, part.unit);
                lvShoppingList->addTopLevelItem(added);
                continue;
            }
            if (!line) continue;
            // The sum goes in the maker's column: the first quantity stays
            // where it was put.
            const double now = Val(line->text(colManufacturer));
            const QString sum = NumberText(mode == 2 ? now + Val(part.quantity) : now - Val(part.quantity));
            if (mode != 2 && sum == QLatin1String("0"))
                delete line;
            else
                line->setText(colManufacturer, sum);
        }
    }
    EnableListButtons();
}

void frmNewMeal::EnableListButtons() {
    const bool any = lvShoppingList->topLevelItemCount() > 0;
    for (QAction* a : tbShopList->actions()) a->setEnabled(any);
}

void frmNewMeal::SetChanged(bool changed) {
    changed_ = changed;
    SetMealBeingEdited(changed);
    setWindowTitle(changed ? QStringLiteral("Meal Planner *") : QStringLiteral("Meal Planner"));
}

void frmNewMeal::tvMealList_DragDrop(QTreeWidgetItem* target, const QString& title) {
    if (!target || title.isEmpty()) return;
    // A failing step is passed over: the drop goes on with the next.
    auto step = [](auto&& body) {
        try {
            body();
        } catch (const std::exception&) {
        }
    };
    const QString text = target->text(0);
    if (text != QLatin1String("Meal") && text != QLatin1String("Appetizer") && text != QLatin1String("Desert")) {
        bool exists = false;
        step([&] { exists = clsRecipies().Exists(text); });
        if (exists) {
            if (MsgBox(QStringLiteral("There is already a recipe assigned to there, replace that recipe?"),
                       Box::YesNo + Box::Question, QStringLiteral("Replace")) == Answer::No)
                return;
            step([&] { AdjustShoppingList(text, 1); });
        }
    }
    if (Tag(target).left(6) != QLatin1String("Meal//")) {
        MsgBox(QStringLiteral("Recipes can only be added to Meals."), Box::Exclamation, QStringLiteral("Notice"));
        return;
    }
    target->setText(0, title);
    MarkCourse(target, true);
    if (target->parent()) target->parent()->setExpanded(true);
    step([&] { clsRecipies().UpdateTimesUsed(title); });
    step([&] { AdjustShoppingList(title, 2); });
    SetChanged(true);
}

void frmNewMeal::tvRecipes_DragDrop(QTreeWidgetItem* target, const QString& title) {
    if (!target || title.isEmpty()) return;
    if (Tag(target) != kCourseTag) {
        MsgBox(QStringLiteral("A Recipe can only be added to a course."), Box::Exclamation, QStringLiteral("Cannot Do"));
        return;
    }
    if (MsgBox(QStringLiteral("Add ") + title + QStringLiteral(" as a ") + target->text(0) + QStringLiteral("?"),
               Box::YesNo + Box::Question, QStringLiteral("Add to Course")) != Answer::Yes)
        return;
    Trap(QStringLiteral("frmNewMeal.tvRecipes_DragDrop"), [&] {
        clsRecipies recipe;
        recipe.Name(title);
        recipe.Course(target->text(0));
        recipe.SetCourse();
        LoadRecipes(tvRecipes->property("grouping").toInt());
    });
}

bool frmNewMeal::AddRecipeAsCourse(const QString& mealName, const QString& courseTag, const QString& title) {
    QTreeWidgetItem* meal = FindMeal(mealName);
    if (!meal) meal = IsDate(QVariant(mealName)) ? OpenForDate(CDate(QVariant(mealName)).date())
                                                 : CreateEmptyNode(mealName, true, QString());
    QTreeWidgetItem* course = FindCourse(meal, courseTag);
    if (!course) return false;
    tvMealList_DragDrop(course, title);
    return course->text(0) == title;
}

bool frmNewMeal::eventFilter(QObject* watched, QEvent* event) {
    // The trees are watched from their making on, before both exist.
    const bool onMeals = tvMealList && watched == tvMealList->viewport();
    const bool onRecipes = tvRecipes && watched == tvRecipes->viewport();
    if (!onMeals && !onRecipes) return GuardedDialog::eventFilter(watched, event);
    switch (event->type()) {
    case QEvent::DragEnter:
    case QEvent::DragMove: {
        auto* e = static_cast<QDropEvent*>(event);
        if (DroppedTitle(e->mimeData()).isEmpty()) return false;
        QTreeWidget* tree = onMeals ? tvMealList : tvRecipes;
        if (event->type() == QEvent::DragMove) {
            // Let the tree scroll near its edges and show where it would land.
            tree->setCurrentItem(tree->itemAt(e->position().toPoint()));
        }
        e->setDropAction(Qt::CopyAction);
        e->accept();
        return true;
    }
    case QEvent::Drop: {
        auto* e = static_cast<QDropEvent*>(event);
        const QString title = DroppedTitle(e->mimeData());
        if (title.isEmpty()) return false;
        QTreeWidget* tree = onMeals ? tvMealList : tvRecipes;
        QTreeWidgetItem* target = tree->itemAt(e->position().toPoint());
        e->setDropAction(Qt::CopyAction);
        e->accept();
        if (onMeals)
            tvMealList_DragDrop(target, title);
        else
            tvRecipes_DragDrop(target, title);
        return true;
    }
    default:
        return GuardedDialog::eventFilter(watched, event);
    }
}

QTreeWidgetItem* frmNewMeal::SelectedMeal() const {
    QTreeWidgetItem* node = tvMealList->currentItem();
    while (node && node->parent()) node = node->parent();
    return node;
}

QString frmNewMeal::SelectedRecipe() const {
    QTreeWidgetItem* node = tvRecipes->currentItem();
    return node && Tag(node) == kRecipeTag ? node->text(0) : QString();
}

QStringList frmNewMeal::RecipesOf(QTreeWidgetItem* meal) const {
    QStringList titles;
    for (int t = 0; meal && t < meal->childCount(); ++t)
        for (int c = 0; c < meal->child(t)->childCount(); ++c)
            if (HoldsRecipe(meal->child(t)->child(c))) titles << meal->child(t)->child(c)->text(0);
    return titles;
}

bool frmNewMeal::AnyRecipe() const {
    for (int i = 0; i < tvMealList->topLevelItemCount(); ++i)
        if (!RecipesOf(tvMealList->topLevelItem(i)).isEmpty()) return true;
    return false;
}

bool frmNewMeal::AnyGuestChecked() const {
    for (int i = 0; i < lvGuests->topLevelItemCount(); ++i)
        if (lvGuests->topLevelItem(i)->checkState(0) == Qt::Checked) return true;
    return false;
}

void frmNewMeal::WriteMeal(QTreeWidgetItem* meal) {
    const QString name = meal->text(0);
    const QString date = Tag(meal);
    const bool favourite = clsMeal().IsFavorite(name);
    for (int t = 0; t < meal->childCount(); ++t) {
        QTreeWidgetItem* time = meal->child(t);
        QStringList courses;
        for (int c = 0; c < time->childCount(); ++c)
            courses << (HoldsRecipe(time->child(c)) ? time->child(c)->text(0) : QStringLiteral(" "));
        const bool any = courses.join(QString()).trimmed().size() > 0;
        // A mealtime's row is kept up to date in place, so what the planner
        // does not show (side dishes, the category) stays as it was.
        Recordset rs;
        rs.Open(QStringLiteral("SELECT * FROM Meal WHERE [Name] = ") + QStringLiteral("'") + name +
                    QStringLiteral("' AND [Meal] = '") + time->text(0) + QStringLiteral("'"),
                ConnectionMain(), adOpenKeyset, adLockOptimistic);
        if (rs.IsEOF()) {
            rs.Close();
            if (!any) continue;
            clsMeal row;
            row.Name(name);
            row.Meal(time->text(0));
            row.Dates(date);
            row.Appetizer(courses.value(0));
            row.MainCourse(courses.value(1));
            row.Desert(courses.value(2));
            row.Favorite(favourite);
            row.AddNew();
            continue;
        }
        rs.setField(QStringLiteral("Dates"), date.isEmpty() ? QVariant(QString()) : QVariant(date));
        rs.setField(QStringLiteral("Appetizer"), courses.value(0));
        rs.setField(QStringLiteral("MainCourse"), courses.value(1));
        rs.setField(QStringLiteral("Desert"), courses.value(2));
        rs.Update();
    }
}

void frmNewMeal::SaveGuests(QTreeWidgetItem* meal) {
    for (const QString& title : RecipesOf(meal)) clsMeal().SaveRecipeGuests(title, lvGuests->model());
}

void frmNewMeal::cmdSave_Click() {
    if (!AnyRecipe()) {
        MsgBox(QStringLiteral("There have been no recipies added to the meal list."), Box::Exclamation);
        return;
    }
    if (MsgBox(QStringLiteral("This will save the entire current list, Continue?"), Box::YesNo + Box::Question,
               QStringLiteral("Save...")) != Answer::Yes)
        return;
    Trap(QStringLiteral("NewMeal.SaveMeals"), [&] {
        ChangeNotices::Instance().Hold();
        struct Release {
            ~Release() { ChangeNotices::Instance().Release(); }
        } release;
        for (int i = 0; i < tvMealList->topLevelItemCount(); ++i) {
            QTreeWidgetItem* meal = tvMealList->topLevelItem(i);
            if (RecipesOf(meal).isEmpty()) continue;
            // A meal without a date is saved under the name the person gives it.
            if (Tag(meal).isEmpty() && !clsMeal().Exists(meal->text(0))) {
                const QString answer = frmNewMealName::GetMealName(this, meal->text(0));
                if (answer.isEmpty()) continue;
                const QString name = answer.section(QStringLiteral("%%"), 0, 0);
                meal->setText(0, name);
                meal->setData(0, KeyRole, QStringLiteral("Meal::") + name);
            }
            clsMeal().SaveDailyMeals(nullptr, 0);
            WriteMeal(meal);
            SaveGuests(meal);
        }
        ChangeNotices::Instance().MealListChanged();
        SetChanged(false);
    });
}

void frmNewMeal::mnuSaveMealAs_Click() {
    QTreeWidgetItem* meal = SelectedMeal();
    if (!meal) {
        MsgBox(QStringLiteral("You must select a 'Meal Name' to change first"), Box::Exclamation);
        return;
    }
    const QString answer = frmNewMealName::GetMealName(this, meal->text(0));
    if (answer.isEmpty()) return;
    if (!AnyGuestChecked() &&
        MsgBox(QStringLiteral("There have been no guests selected. Do you wish to save this Meal anyway?"),
               Box::YesNo + Box::Question + Box::DefaultButton2 + Box::HelpButton,
               QStringLiteral("No Guests")) == Answer::No)
        return;
    clsMeal().SaveSingleMeal(nullptr, 0);
    SaveGuests(meal);
}

void frmNewMeal::mnuSaveCourseAsMeal_Click() {
    QTreeWidgetItem* course = tvMealList->currentItem();
    if (!HoldsRecipe(course)) {
        MsgBox(QStringLiteral("That Course has not had any Recipes added to it, please add a Recipe(s) before "
                              "saving."),
               Box::Exclamation, QStringLiteral("Notice"));
        return;
    }
    const QStringList path = Tag(course).split(QStringLiteral("//"));
    const QString answer = frmNewMealName::GetMealName(this);
    if (answer.isEmpty()) return;
    Trap(QStringLiteral("NewMeal.SaveCourseAsMeal"), [&] {
        const QString mealtime = MealtimeWord(path.value(1));
        clsMeal meal;
        meal.Name(answer.section(QStringLiteral("%%"), 0, 0));
        meal.Category(answer.section(QStringLiteral("%%"), 1));
        meal.Meal(mealtime);
        const QString which = path.value(2);
        if (which == QLatin1String("Appetizer"))
            meal.Appetizer(course->text(0));
        else if (which == QLatin1String("Main Course"))
            meal.MainCourse(course->text(0));
        else
            meal.Desert(course->text(0));
        clsMeal().SaveSingleMealCourse(nullptr, 0);
        meal.AddNew();
        course->setIcon(0, PaneIcon(QStringLiteral("MealSaved")));
        ChangeNotices::Instance().MealListChanged();
        // The course came out of a meal, which still holds it.
        QTreeWidgetItem* original = SelectedMeal();
        if (original && original != course &&
            MsgBox(QStringLiteral("Do you want to leave this Course as part of the original Meal?"),
                   Box::YesNo + Box::Question, QStringLiteral("Remove Course")) == Answer::No) {
            const QString column = which == QLatin1String("Appetizer")     ? QStringLiteral("Appetizer")
                                   : which == QLatin1String("Main Course") ? QStringLiteral("MainCourse")
                                                                           : QStringLiteral("Desert");
            Recordset rs;
            rs.Open(QStringLiteral("SELECT * FROM Meal WHERE [Name] = '") + original->text(0) +
                        QStringLiteral("' AND [Meal] = '") + mealtime + QStringLiteral("'"),
                    ConnectionMain(), adOpenKeyset, adLockOptimistic);
            if (!rs.IsEOF()) {
                rs.setField(column, QStringLiteral(" "));
                rs.Update();
            }
            rs.Close();
            course->setText(0, LabelOf(course));
            MarkCourse(course, false);
        }
    });
}

void frmNewMeal::mnuRemoveRecipeFromMeal_Click() {
    QTreeWidgetItem* node = tvMealList->currentItem();
    if (!node) return;
    const QString text = node->text(0);
    QList<QTreeWidgetItem*> courses;
    if (text == QLatin1String("Breakfast") || text == QLatin1String("Lunch") || text == QLatin1String("Dinner")) {
        if (MsgBox(QStringLiteral("You have chosen to remove a complete Course from this Meal. Are you certain?"),
                   Box::YesNo + Box::Question, QStringLiteral("Confirm Course")) != Answer::Yes)
            return;
        for (int c = 0; c < node->childCount(); ++c) courses << node->child(c);
    } else {
        courses << node;
    }
    bool removed = false;
    for (QTreeWidgetItem* course : courses) {
        if (!HoldsRecipe(course)) continue;
        const QString title = course->text(0);
        course->setText(0, LabelOf(course));
        MarkCourse(course, false);
        Trap(QStringLiteral("NewMeal.RemoveRecipe"), [&] { AdjustShoppingList(title, 1); });
        removed = true;
    }
    if (removed) SetChanged(true);
}

void frmNewMeal::mnuRenameMeal_Click() {
    QTreeWidgetItem* meal = tvMealList->currentItem();
    if (!meal || meal->parent()) {
        MsgBox(QStringLiteral("You must select a 'Meal Name' to change first"), Box::Exclamation);
        return;
    }
    const QString oldName = meal->text(0);
    bool keepDate = true;
    if (!Tag(meal).isEmpty())
        keepDate = MsgBox(QStringLiteral("Would you like to keep the ") + Tag(meal) +
                              QStringLiteral(" date for this Meal?"),
                          Box::YesNo + Box::Question, QStringLiteral("Keep date")) == Answer::Yes;
    const QString newName =
        InputBox(QStringLiteral("What is the new name you would like to use for ") + oldName + QStringLiteral("?"),
                 QStringLiteral("Saved As"), oldName);
    if (newName.isEmpty() || newName == oldName) return;
    if (newName.contains(QLatin1String("::"))) {
        MsgBox(QStringLiteral("A Meal Name cannot contain '::'"), Box::Exclamation, QStringLiteral("Notice"));
        return;
    }
    if (FindMeal(newName) || clsMeal().Exists(newName)) {
        MsgBox(QStringLiteral("That Meal name already exists, please re-enter."), Box::Exclamation);
        return;
    }
    clsMeal().ChangeName(oldName, newName);
    meal->setText(0, newName);
    meal->setData(0, KeyRole, QStringLiteral("Meal::") + newName);
    if (!keepDate) {
        meal->setData(0, TagRole, QString());
        SetChanged(true);
    }
}

QString frmNewMeal::PickDate(const QString& prompt, const QDate& current) {
    QDialog picker(this);
    picker.setObjectName(QStringLiteral("frmSetSingleMealDate"));
    picker.setWindowTitle(QStringLiteral("Set Item Date"));
    auto* label = new QLabel(prompt, &picker);
    auto* calendar = new QCalendarWidget(&picker);
    calendar->setObjectName(QStringLiteral("mvDate"));
    calendar->setMinimumDate(Clock::Today());
    calendar->setSelectedDate(current.isValid() && current >= Clock::Today() ? current : Clock::Today());
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, &picker);
    auto* layout = new QVBoxLayout(&picker);
    layout->addWidget(label);
    layout->addWidget(calendar);
    layout->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::accepted, &picker, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, &picker, &QDialog::reject);
    connect(calendar, &QCalendarWidget::activated, &picker, &QDialog::accept);
    if (TheUi().ShowModal(&picker) != QDialog::Accepted) return QString();
    return Format(QVariant(calendar->selectedDate()), QStringLiteral("mm/dd/yy"));
}

void frmNewMeal::mnuChangeDate_Click() {
    QTreeWidgetItem* meal = SelectedMeal();
    if (!meal) {
        MsgBox(QStringLiteral("You must select a 'Meal Name' to change first"), Box::Exclamation);
        return;
    }
    const QDate current = IsDate(QVariant(Tag(meal))) ? CDate(QVariant(Tag(meal))).date() : QDate();
    const QString date = PickDate(QStringLiteral("The new date for ") + meal->text(0) + QStringLiteral(":"), current);
    if (date.isEmpty()) return;
    const QString longDate = Format(QVariant(CDate(QVariant(date))), QStringLiteral("dddd, mmm d yyyy"));
    if (clsMeal().DateTaken(date) || (FindMeal(longDate) && FindMeal(longDate) != meal)) {
        MsgBox(QStringLiteral("The Date, ") + date + QStringLiteral(", has already been used, Please select again."),
               Box::Exclamation, QStringLiteral("Notice"));
        return;
    }
    for (const Mealtime& m : kMealtimes) clsMeal().ChangeDate(meal->text(0), QString::fromLatin1(m.word), date);
    meal->setData(0, TagRole, date);
}

void frmNewMeal::mnuDeleteMeal_Click() {
    QTreeWidgetItem* meal = tvMealList->currentItem();
    if (!meal || meal->parent()) {
        MsgBox(QStringLiteral("You must select a 'Meal Name' to delete first"), Box::Exclamation);
        return;
    }
    Trap(QStringLiteral("NewMeal.DeleteMeal"), [&] {
        const QString name = meal->text(0);
        if (MsgBox(QStringLiteral("Are you sure that you want to delete the Meal ") + name + QStringLiteral(" ?"),
                   Box::YesNo + Box::Question, QStringLiteral("Delete Meal")) != Answer::Yes)
            return;
        if (!clsMeal().Exists(name)) {
            MsgBox(QStringLiteral("Meal, ") + name + QStringLiteral(", has not been saved."), Box::Information);
        } else {
            // Every mealtime's row goes, not only the first.
            for (const Mealtime& m : kMealtimes) clsMeal().RemoveCourse(name, QString::fromLatin1(m.word));
            if (clsMeal().Exists(name)) clsMeal().Remove(name);
        }
        for (const QString& title : RecipesOf(meal)) AdjustShoppingList(title, 1);
        delete meal;
    });
}

void frmNewMeal::mnuPurgeOldMeals_Click() {
    qint32 count = 0;
    clsMeal().Purge(2, count);
    if (count == 0) {
        MsgBox(QStringLiteral("There were no Meals to remove from the database."), Box::Information);
        return;
    }
    const QString today = Format(QVariant(Clock::Today()), QStringLiteral("mm/dd/yyyy"));
    if (MsgBox(QStringLiteral("This option will delete ") + QString::number(count) +
                   QStringLiteral(" meals prior to today, ") + today + QStringLiteral(".") + QStringLiteral("\n") +
                   QStringLiteral("Do you wish to continue?"),
               Box::YesNo + Box::Question, QStringLiteral("Purge Meals")) != Answer::Yes)
        return;
    clsMeal().Purge(1, count);
}

void frmNewMeal::mnuToggleFavoriteMeal_Click() {
    QTreeWidgetItem* meal = SelectedMeal();
    if (!meal) return;
    clsMeal().ToggleFavorite(meal->text(0));
    meal->setIcon(0, PaneIcon(clsMeal().IsFavorite(meal->text(0)) ? QStringLiteral("MealFavorite") : "Meal"));
}

void frmNewMeal::mnuExpandView_Click() { tvMealList->expandAll(); }

void frmNewMeal::mnuDisplayRecipe_Click() {
    const QString title = SelectedRecipe();
    if (!title.isEmpty()) clsRecipies().PrintPreview(title, 2, QString());
}

void frmNewMeal::mnuListItemDelete_Click() {
    delete lvShoppingList->currentItem();
    EnableListButtons();
}

void frmNewMeal::lvGuests_ItemCheck(QTreeWidgetItem* item, int) {
    if (loadingGuests_ || !item || item->checkState(0) != Qt::Checked) return;
    // Serving a recipe to someone who has had it is asked about.
    const QString title = SelectedRecipe();
    if (title.isEmpty()) return;
    if (clsGuestServed().RecipeServed(title, item->text(0)) == Answer::No) {
        loadingGuests_ = true;
        item->setCheckState(0, Qt::Unchecked);
        loadingGuests_ = false;
    }
}

void frmNewMeal::tbMeal_ButtonClick(const QString& key) {
    if (key == QLatin1String("Close")) {
        CloseChecked();
    } else if (key == QLatin1String("Save")) {
        cmdSave_Click();
    } else if (key == QLatin1String("Open")) {
        const QString name = InputBox(QStringLiteral("Which saved Meal would you like to open?"),
                                      QStringLiteral("Open Meal"));
        if (!name.isEmpty()) CreateEmptyNode(name, true, QString());
    } else if (key == QLatin1String("MealDates")) {
        AddMealDates(PickDate(QStringLiteral("What Date(s) would you like to generate empty Meal records for?"),
                              QDate()));
    } else if (key == QLatin1String("Delivery") || key == QLatin1String("WeeklyMeals") ||
               key == QLatin1String("Daily Meals") || key == QLatin1String("MealSuggestion") ||
               key == QLatin1String("CreateMeal") || key == QLatin1String("Categories") ||
               key == QLatin1String("CourseMap") || key == QLatin1String("Coupon") ||
               key == QLatin1String("Nutrition") || key == QLatin1String("Help")) {
        MsgBox(QStringLiteral("This feature will be added soon!"), Box::Information, QStringLiteral("Coming Soon"));
    }
}

void frmNewMeal::tbShopList_ButtonClick(const QString& key) {
    if (key == QLatin1String("Clear")) {
        lvShoppingList->clear();
        EnableListButtons();
    } else {
        MsgBox(QStringLiteral("This feature will be added soon!"), Box::Information, QStringLiteral("Coming Soon"));
    }
}

void frmNewMeal::tbGuests_ButtonClick(const QString&) {
    MsgBox(QStringLiteral("This feature will be added soon!"), Box::Information, QStringLiteral("Coming Soon"));
}

bool frmNewMeal::MayClose() {
    if (!changed_) return true;
    return MsgBox(QStringLiteral("The current Meal has changed and hasn't been saved, Continue?"),
                  Box::YesNo + Box::Question, QStringLiteral("Exit?")) == Answer::Yes;
}

void frmNewMeal::Closing() { SetMealBeingEdited(false); }
