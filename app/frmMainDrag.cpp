// Dragging recipes out of the recipe tree: onto the current list, onto a day
// of the meal calendar, or onto another category. The tree scrolls while the
// pointer rests near its top or bottom edge, and a collapsed category held
// under the pointer opens after a moment.
#include "app/frmMain.h"
#include "core/ChangeNotices.h"
#include "core/Dates.h"
#include "core/ErrorReport.h"
#include "core/Globals.h"
#include "core/ListView.h"
#include "core/MainPanes.h"
#include "core/Values.h"
#include "core/clsRegistry.h"
#include "core/modVerify.h"
#include "lists/frmShoppingListSelect.h"
#include "meals/MealPane.h"
#include "meals/clsMeal.h"
#include "platform/Clock.h"
#include "platform/Database.h"
#include "platform/Recordset.h"
#include "platform/Ui.h"
#include "recipes/clsRecipies.h"

#include <QApplication>
#include <QCalendarWidget>
#include <QDrag>
#include <QDragMoveEvent>
#include <QDropEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QScrollBar>
#include <QTableView>
#include <QTimer>
#include <QTreeView>

namespace {

const char* const kRecipeMime = "application/x-larderkeep-recipe";

// How close to the tree's top or bottom edge the pointer scrolls it.
int ScrollMargin(const QTreeView* tree) {
    const int row = tree->sizeHintForRow(0);
    return qMax(12, row > 0 ? row : 16);
}

QString DroppedTitle(const QMimeData* mime) {
    if (!mime || !mime->hasFormat(QString::fromLatin1(kRecipeMime))) return QString();
    return QString::fromUtf8(mime->data(QString::fromLatin1(kRecipeMime)));
}

// PROMPT_BEFORE_ADD holds a loose value; only a clear "off" silences the question.
bool PromptBeforeAdd() {
    const QVariant v = Registry().PromptBeforeAdd();
    if (IsEmpty(v) || IsNull(v)) return true;
    try {
        return CBool(v);
    } catch (const std::exception&) {
        return true;
    }
}

}  // namespace

// --- starting and ending a drag ------------------------------------------------

void frmMain::StartRecipeDrag(const QString& title) {
    dragTitle_ = title;
    auto* mime = new QMimeData;
    mime->setData(QString::fromLatin1(kRecipeMime), title.toUtf8());
    mime->setText(title);
    auto* drag = new QDrag(tvRecipes);
    drag->setMimeData(mime);
    drag->exec(Qt::CopyAction);
    EndDrag();
}

void frmMain::EndDrag() {
    dragTitle_.clear();
    scrollDirection_ = 0;
    Timer1->stop();
    expandTimer_->stop();
    expandIndex_ = QPersistentModelIndex();
}

void frmMain::tvRecipes_DragOver(const QPoint& pos) {
    const int margin = ScrollMargin(tvRecipes);
    const int height = tvRecipes->viewport()->height();
    if (pos.y() < margin)
        scrollDirection_ = -1;
    else if (pos.y() > height - margin)
        scrollDirection_ = 1;
    else
        scrollDirection_ = 0;
    if (scrollDirection_ != 0 && !Timer1->isActive()) Timer1->start();
    if (scrollDirection_ == 0) Timer1->stop();

    const QModelIndex over = tvRecipes->indexAt(pos);
    if (over != QModelIndex(expandIndex_)) {
        expandIndex_ = QPersistentModelIndex();
        expandTimer_->stop();
        if (over.isValid() && !tvRecipes->isExpanded(over) && tvRecipes->model()->hasChildren(over)) {
            expandIndex_ = over;
            expandTimer_->start();
        }
    }
}

void frmMain::Timer1_Timer() {
    // One line up or down, as a click on the scroll bar's arrow would.
    QScrollBar* bar = tvRecipes->verticalScrollBar();
    if (scrollDirection_ < 0)
        bar->triggerAction(QAbstractSlider::SliderSingleStepSub);
    else if (scrollDirection_ > 0)
        bar->triggerAction(QAbstractSlider::SliderSingleStepAdd);
}

QDate frmMain::CalendarDateAt(const QPoint& viewportPos) const {
    if (!calendarView_) return QDate();
    const QModelIndex index = calendarView_->indexAt(viewportPos);
    bool number = false;
    const int day = index.data(Qt::DisplayRole).toInt(&number);
    if (!index.isValid() || !number || day < 1) return QDate();
    // The grid shows six weeks: days of the month before in the first rows,
    // of the month after in the last ones.
    const QDate shown(calMeals->yearShown(), calMeals->monthShown(), 1);
    const int rows = calendarView_->model()->rowCount();
    QDate month = shown;
    if (index.row() <= 2 && day > 20)
        month = shown.addMonths(-1);
    else if (index.row() >= rows - 2 && day < 15)
        month = shown.addMonths(1);
    return QDate(month.year(), month.month(), day);
}

bool frmMain::eventFilter(QObject* watched, QEvent* event) {
    QWidget* treeArea = tvRecipes->viewport();
    QWidget* listArea = lvCurrentList->viewport();
    QWidget* calendarArea = calendarView_ ? calendarView_->viewport() : nullptr;

    if (watched == lvMessageCenter && event->type() == QEvent::KeyPress) {
        if (static_cast<QKeyEvent*>(event)->key() == Qt::Key_Delete) {
            RunCommand(QStringLiteral("mnuDeleteMessage"));
            return true;
        }
        return false;
    }

    if (watched == treeArea) {
        switch (event->type()) {
        case QEvent::MouseButtonPress: {
            auto* e = static_cast<QMouseEvent*>(event);
            if (e->button() == Qt::LeftButton) pressPos_ = e->position().toPoint();
            break;
        }
        case QEvent::MouseMove: {
            auto* e = static_cast<QMouseEvent*>(event);
            if (!(e->buttons() & Qt::LeftButton) || !dragTitle_.isEmpty()) break;
            if ((e->position().toPoint() - pressPos_).manhattanLength() < QApplication::startDragDistance()) break;
            QStandardItem* node = MainPanes::Instance().recipes.itemFromIndex(tvRecipes->indexAt(pressPos_));
            if (MainPanes::IsRecipeNode(node)) {
                StartRecipeDrag(node->text());
                return true;
            }
            break;
        }
        case QEvent::DragEnter:
        case QEvent::DragMove: {
            auto* e = static_cast<QDragMoveEvent*>(event);
            if (DroppedTitle(e->mimeData()).isEmpty()) return false;
            tvRecipes_DragOver(e->position().toPoint());
            e->acceptProposedAction();
            return true;
        }
        case QEvent::DragLeave:
            Timer1->stop();
            expandTimer_->stop();
            break;
        case QEvent::Drop: {
            auto* e = static_cast<QDropEvent*>(event);
            const QString title = DroppedTitle(e->mimeData());
            if (title.isEmpty()) return false;
            e->acceptProposedAction();
            Timer1->stop();
            QStandardItem* target =
                MainPanes::Instance().recipes.itemFromIndex(tvRecipes->indexAt(e->position().toPoint()));
            // The drop's questions are asked once the drag has let go.
            QPersistentModelIndex where = target ? QPersistentModelIndex(target->index()) : QPersistentModelIndex();
            QTimer::singleShot(0, this, [this, title, where] {
                tvRecipes_DragDrop(title, MainPanes::Instance().recipes.itemFromIndex(where));
            });
            return true;
        }
        default:
            break;
        }
        return false;
    }

    if (watched == listArea || (calendarArea && watched == calendarArea)) {
        switch (event->type()) {
        case QEvent::DragEnter:
        case QEvent::DragMove: {
            auto* e = static_cast<QDragMoveEvent*>(event);
            if (DroppedTitle(e->mimeData()).isEmpty()) return false;
            if (watched == calendarArea && !CalendarDateAt(e->position().toPoint()).isValid()) {
                e->ignore();
                return true;
            }
            e->acceptProposedAction();
            return true;
        }
        case QEvent::Drop: {
            auto* e = static_cast<QDropEvent*>(event);
            const QString title = DroppedTitle(e->mimeData());
            if (title.isEmpty()) return false;
            e->acceptProposedAction();
            if (watched == listArea) {
                QTimer::singleShot(0, this, [this, title] { lvCurrentList_DragDrop(title); });
            } else {
                const QDate day = CalendarDateAt(e->position().toPoint());
                QTimer::singleShot(0, this, [this, title, day] { calMeals_DragDrop(title, day); });
            }
            return true;
        }
        default:
            break;
        }
        return false;
    }
    return QMainWindow::eventFilter(watched, event);
}

// --- the drops -------------------------------------------------------------------

QString frmMain::PickShoppingList() { return frmShoppingListSelect::GetListName(this); }

void frmMain::GenerateListFromRecipe(const QString& recipe, const QString& list) {
    QString title = recipe;
    QString name = list;
    clsRecipies().GenerateList(title, name);
}

QString frmMain::PickListOfferingDefault() {
    const QString list = PickShoppingList();
    if (list.isEmpty()) return list;
    Response = MsgBox(QStringLiteral("Would you like to use ") + list + QStringLiteral(" as the default?"),
                      Box::YesNo + Box::Question, QStringLiteral("Set default"));
    if (Response == Answer::Yes) Registry().CurrentShoppingList(list);
    return list;
}

void frmMain::lvCurrentList_DragDrop(const QString& recipe) {
    Trap(QStringLiteral("frmMain.lvCurrentList_DragDrop"), [&] {
        if (recipe.isEmpty()) return;
        QString list = Registry().CurrentShoppingList();
        if (!list.isEmpty()) {
            if (PromptBeforeAdd()) {
                Response =
                    MsgBox(QStringLiteral("Add ") + recipe + QStringLiteral(" to ") + list + QStringLiteral(" ?"),
                           Box::YesNo + Box::Question, QStringLiteral("Add Recipe"));
                if (Response == Answer::No) return;
            }
        } else {
            list = PickListOfferingDefault();
            if (list.isEmpty()) return;
        }
        // Every change of the drop reaches the list pane as one reload, at the end.
        NoticeBatch batch;
        GenerateListFromRecipe(recipe, list);
        clsRecipies().UpdateTimesUsed(recipe);
        Notices().ShoppingListChanged();
    });
}

void frmMain::calMeals_DragDrop(const QString& recipe, const QDate& day) {
    Trap(QStringLiteral("frmMain.calMeals_DragDrop"), [&] {
        if (recipe.isEmpty() || !day.isValid()) return;
        const QString shortDate = Format(QVariant(day), QStringLiteral("mm/dd/yy"));
        if (CDate(shortDate).date() < Clock::Today()) {
            MsgBox(QStringLiteral("This date is before today and cannot be added, Please reselect."), Box::Exclamation,
                   QStringLiteral("Select Again"));
            return;
        }
        const QString longDate = Format(QVariant(day), QStringLiteral("dddd, mmm d yyyy"));
        Response = MsgBox(QStringLiteral("Do you wish to add ") + recipe + QStringLiteral(" as a meal on ") + longDate +
                              QStringLiteral(" ?"),
                          Box::YesNo + Box::Question, QStringLiteral("Add Meal?"));
        if (Response != Answer::Yes) return;

        // One meal a day from the calendar: a day that has one keeps it.
        if (!clsMeal().DateTaken(shortDate)) {
            clsMeal meal;
            meal.Name(longDate);
            meal.Meal(QStringLiteral("Dinner"));
            meal.Dates(shortDate);
            meal.MainCourse(recipe);
            if (meal.AddNew()) {
                Recordset added;
                added.Open(QStringLiteral("SELECT [ID] FROM Meal WHERE [Name] = ") + SqlText(longDate) +
                               QStringLiteral(" ORDER BY [ID] DESC"),
                           ConnectionMain(), adOpenKeyset, adLockReadOnly);
                if (!added.IsEOF())
                    MealPane::AddMealRow(longDate, false, TextOf(added.Field(QStringLiteral("ID"))),
                                         {QString(), recipe, QString(), QString(), QString(), QString()});
            }
        }
        clsRecipies().UpdateTimesUsed(recipe);
        MealPane::MarkMealDay(day);

        Response =
            MsgBox(QStringLiteral("Do you wish to add ") + recipe + QStringLiteral(" to the current shopping list?"),
                   Box::YesNo + Box::Question, QStringLiteral("Add to Shoppinglist"));
        if (Response != Answer::Yes) return;
        // As for a drop on the list: with no default list the person picks one.
        QString list = Registry().CurrentShoppingList();
        if (list.isEmpty()) list = PickListOfferingDefault();
        if (list.isEmpty()) return;
        NoticeBatch batch;
        GenerateListFromRecipe(recipe, list);
        clsRecipies().UpdateTimesUsed(recipe);
        MainPanes::Instance().Clear(MainPanes::Instance().currentList);
        Notices().ShoppingListChanged();
    });
}

void frmMain::tvRecipes_DragDrop(const QString& recipe, QStandardItem* target) {
    Trap(QStringLiteral("frmMain.tvRecipes_DragDrop"), [&] {
        if (recipe.isEmpty() || !target) return;
        const QString tag = target->data(MainPanes::TagRole).toString();
        if (MainPanes::IsRecipeNode(target)) {
            MsgBox(QStringLiteral("A Recipe can only be added to a Category."), Box::Exclamation,
                   QStringLiteral("Cannot Do"));
            return;
        }
        if (tag != QLatin1String("RecipeCategory")) return;
        const QString category = target->text();
        Response = MsgBox(QStringLiteral("Add ") + recipe + QStringLiteral(" to the ") + category + QStringLiteral("?"),
                          Box::YesNo + Box::Question, QStringLiteral("Add Category"));
        if (Response != Answer::Yes) return;
        clsRecipies recipes;
        recipes.AddRecipeCategory(category, recipe);
        tvRecipes->expand(target->index());
    });
}
