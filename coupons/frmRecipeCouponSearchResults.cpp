#include "coupons/frmRecipeCouponSearchResults.h"

#include "core/ChangeNotices.h"
#include "core/ErrorReport.h"
#include "core/Globals.h"
#include "core/PaneIcons.h"
#include "core/Values.h"
#include "core/clsRegistry.h"
#include "lists/frmShoppingListSelect.h"
#include "platform/Recordset.h"
#include "platform/Ui.h"
#include "recipes/PackedIngredient.h"
#include "recipes/clsRecipies.h"

#include <QAbstractTableModel>
#include <QAction>
#include <QCloseEvent>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QHash>
#include <QHeaderView>
#include <QLabel>
#include <QProgressBar>
#include <QStatusBar>
#include <QStyle>
#include <QToolBar>
#include <QTreeView>
#include <QVBoxLayout>
#include <algorithm>
#include <climits>
#include <string>
#include <vector>

namespace {

// Text as the database's LIKE compares it: letters A to Z fold to lower case,
// every other character stands as it is.
std::u32string LikeKey(const QString& text) {
    std::u32string out;
    out.reserve(size_t(text.size()));
    for (char32_t c : text.toUcs4()) out += (c >= U'A' && c <= U'Z') ? char32_t(c + 32) : c;
    return out;
}

// The database's LIKE without an escape character: "%" any run of
// characters, "_" exactly one, everything else itself (case folded as above).
bool Like(const std::u32string& text, const std::u32string& pattern) {
    size_t t = 0, p = 0, starP = std::u32string::npos, starT = 0;
    while (t < text.size()) {
        if (p < pattern.size() && pattern[p] == U'%') {
            starP = p++;
            starT = t;
        } else if (p < pattern.size() && (pattern[p] == U'_' || pattern[p] == text[t])) {
            ++p;
            ++t;
        } else if (starP != std::u32string::npos) {
            p = starP + 1;
            t = ++starT;
        } else {
            return false;
        }
    }
    while (p < pattern.size() && pattern[p] == U'%') ++p;
    return p == pattern.size();
}

const QString kLongDate = QStringLiteral("dddd, mmm d yyyy");
constexpr int kChunk = 1000;  // lines handed to the view at a time
constexpr int kTickMs = 40;   // how often the window paints during the search

}  // namespace

// The lines of the search. A run is one ingredient of one recipe with the
// coupons its name matches; the coupons an ingredient name matches are worked
// out once per name, since the same names recur across thousands of recipes.
class frmRecipeCouponSearchResults::Lines : public QAbstractTableModel {
public:
    struct Coupon {
        qint32 id = 0;
        bool hasProduct = false;  // a missing product matches nothing
        std::u32string key;
        QString text, value, expires;
    };
    struct Run {
        qint64 first = 0;
        int recipe = 0;
        int matches = 0;  // index into matchLists
        QString ingredient;
    };

    using QAbstractTableModel::QAbstractTableModel;

    void Reset() {
        beginResetModel();
        coupons_.clear();
        matchLists_.clear();
        listOf_.clear();
        runs_.clear();
        titles_.clear();
        total_ = 0;
        fetched_ = 0;
        endResetModel();
    }

    // The coupons, once, in the order the table keeps them.
    void LoadCoupons() {
        Recordset rs;
        rs.Open(QStringLiteral("SELECT [ID],[Product],[Manufacturer],[Value],[Expiration] FROM Coupons ORDER BY [ID]"),
                ConnectionMain(), adOpenForwardOnly, adLockReadOnly);
        for (; !rs.IsEOF(); rs.MoveNext()) {
            Coupon c;
            c.id = rs.Field(QStringLiteral("ID")).toInt();
            const QVariant product = rs.Field(QStringLiteral("Product"));
            c.hasProduct = !IsNull(product);
            c.key = LikeKey(TextOf(product));
            c.text = TextOf(rs.Field(QStringLiteral("Manufacturer"))) + QStringLiteral("'s ") + TextOf(product);
            c.value = Format(rs.Field(QStringLiteral("Value")), QStringLiteral("$0#.0#"));
            const QVariant expiration = rs.Field(QStringLiteral("Expiration"));
            c.expires = TextOf(expiration) == QLatin1String("Never") ? QStringLiteral("Never")
                                                                      : Format(expiration, kLongDate);
            coupons_.push_back(std::move(c));
        }
    }

    int AddRecipe(const QString& title) {
        titles_ << title;
        return int(titles_.size()) - 1;
    }

    // The coupons whose product is LIKE '%<item>%'.
    void AddIngredient(int recipe, const QString& item) {
        auto it = listOf_.constFind(item);
        if (it == listOf_.constEnd()) {
            const std::u32string pattern = U"%" + LikeKey(item) + U"%";
            std::vector<int> found;
            for (int i = 0; i < int(coupons_.size()); ++i)
                if (coupons_[size_t(i)].hasProduct && Like(coupons_[size_t(i)].key, pattern)) found.push_back(i);
            matchLists_.push_back(std::move(found));
            it = listOf_.insert(item, int(matchLists_.size()) - 1);
        }
        const std::vector<int>& found = matchLists_[size_t(*it)];
        if (found.empty()) return;
        runs_.push_back(Run{total_, recipe, *it, item});
        total_ += qint64(found.size());
    }

    qint64 Total() const { return total_; }

    // Gives the view the first lines while the search is still going.
    void ShowAvailable() {
        if (fetched_ < kChunk && canFetchMore(QModelIndex())) fetchMore(QModelIndex());
    }

    const Run& RunOf(qint64 row) const {
        auto it = std::upper_bound(runs_.begin(), runs_.end(), row,
                                   [](qint64 r, const Run& run) { return r < run.first; });
        return *(it - 1);
    }
    const Coupon& CouponOf(qint64 row) const {
        const Run& run = RunOf(row);
        return coupons_[size_t(matchLists_[size_t(run.matches)][size_t(row - run.first)])];
    }
    QString Title(qint64 row) const { return titles_[RunOf(row).recipe]; }

    QString Cell(qint64 row, int column) const {
        const Run& run = RunOf(row);
        const Coupon& c = coupons_[size_t(matchLists_[size_t(run.matches)][size_t(row - run.first)])];
        switch (column) {
            case colRecipe: return titles_[run.recipe];
            case colIngredient: return run.ingredient;
            case colCoupon: return c.text;
            case colValue: return c.value;
            case colExpires: return c.expires;
        }
        return QString();
    }

    int rowCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : fetched_; }
    int columnCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : 5; }

    QVariant data(const QModelIndex& index, int role) const override {
        if (!index.isValid() || index.row() >= fetched_) return {};
        switch (role) {
            case Qt::DisplayRole:
            case Qt::ToolTipRole: return Cell(index.row(), index.column());
            case Qt::DecorationRole:
                return index.column() == colRecipe ? QVariant(PaneIcon(QStringLiteral("Coupon"))) : QVariant();
            case Qt::UserRole: return CouponOf(index.row()).id;
            case Qt::TextAlignmentRole:
                return index.column() == colValue ? QVariant(Qt::AlignCenter) : QVariant();
        }
        return {};
    }

    QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
        static const QStringList names = {QStringLiteral("Recipe"), QStringLiteral("Ingredient"),
                                          QStringLiteral("Coupon"), QStringLiteral("Value"),
                                          QStringLiteral("Expires")};
        if (orientation != Qt::Horizontal || section < 0 || section >= names.size()) return {};
        if (role == Qt::DisplayRole) return names[section];
        if (role == Qt::TextAlignmentRole && section == colValue) return QVariant(Qt::AlignCenter);
        return {};
    }

    bool canFetchMore(const QModelIndex& parent) const override {
        return !parent.isValid() && fetched_ < std::min<qint64>(total_, INT_MAX);
    }
    void fetchMore(const QModelIndex& parent) override {
        if (parent.isValid()) return;
        const int more = int(std::min<qint64>(kChunk, std::min<qint64>(total_, INT_MAX) - fetched_));
        if (more <= 0) return;
        beginInsertRows(QModelIndex(), fetched_, fetched_ + more - 1);
        fetched_ += more;
        endInsertRows();
    }

private:
    std::vector<Coupon> coupons_;
    std::vector<std::vector<int>> matchLists_;
    QHash<QString, int> listOf_;
    std::vector<Run> runs_;
    QStringList titles_;
    qint64 total_ = 0;
    int fetched_ = 0;
};

frmRecipeCouponSearchResults::frmRecipeCouponSearchResults(QWidget* parent)
    : QDialog(parent), lines_(new Lines(this)) {
    setObjectName(QStringLiteral("frmRecipeCouponSearchResults"));
    setWindowTitle(QStringLiteral("Recipes with Coupons"));

    tbrMain = new QToolBar(this);
    tbrMain->setObjectName(QStringLiteral("tbrMain"));
    tbrMain->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    tbrMain->setIconSize(QSize(24, 24));
    const struct {
        const char* key;
        const char* caption;
        const char* tip;
        QIcon icon;
    } buttons[] = {
        {"Close", "Close", "Close the results.", style()->standardIcon(QStyle::SP_DialogCloseButton)},
        {"Compare", "Compare", "Compare the recipes.", PaneIcon(QStringLiteral("RecipeCompare"))},
        {"Meal", "Meal", "Make a meal of the recipe.", PaneIcon(QStringLiteral("Meal"))},
        {"Shoplist", "Shopping List", "Put the recipe on the shopping list.", PaneIcon(QStringLiteral("ShopList"))},
    };
    for (const auto& b : buttons) {
        QAction* action = tbrMain->addAction(b.icon, QString::fromLatin1(b.caption));
        const QString key = QString::fromLatin1(b.key);
        action->setObjectName(key);
        action->setToolTip(QString::fromLatin1(b.tip));
        connect(action, &QAction::triggered, this, [this, key] { tbrMain_ButtonClick(key); });
    }

    lvSearchResults = new QTreeView(this);
    lvSearchResults->setObjectName(QStringLiteral("lvSearchResults"));
    lvSearchResults->setModel(lines_);
    lvSearchResults->setRootIsDecorated(false);
    lvSearchResults->setUniformRowHeights(true);
    lvSearchResults->setAlternatingRowColors(true);
    lvSearchResults->setSelectionBehavior(QAbstractItemView::SelectRows);
    lvSearchResults->setSelectionMode(QAbstractItemView::SingleSelection);
    lvSearchResults->setAllColumnsShowFocus(true);
    lvSearchResults->header()->setStretchLastSection(true);
    connect(lvSearchResults, &QTreeView::clicked, this, &frmRecipeCouponSearchResults::lvSearchResults_ItemClick);
    connect(lvSearchResults->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this](const QModelIndex& current) { lvSearchResults_ItemClick(current); });

    sbStatus = new QStatusBar(this);
    sbStatus->setObjectName(QStringLiteral("sbStatus"));
    sbStatus->setSizeGripEnabled(false);
    lblStatus = new QLabel(sbStatus);
    lblStatus->setObjectName(QStringLiteral("lblStatus"));
    pbProgress = new QProgressBar(sbStatus);
    pbProgress->setObjectName(QStringLiteral("pbProgress"));
    pbProgress->setMaximumWidth(220);
    pbProgress->setTextVisible(false);
    sbStatus->addWidget(lblStatus, 1);
    sbStatus->addPermanentWidget(pbProgress);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(tbrMain);
    layout->addWidget(lvSearchResults, 1);
    layout->addWidget(sbStatus);
    resize(860, 480);
}

frmRecipeCouponSearchResults::~frmRecipeCouponSearchResults() = default;

qint64 frmRecipeCouponSearchResults::LineCount() const { return lines_->Total(); }

QStringList frmRecipeCouponSearchResults::Line(qint64 row) const {
    QStringList cells;
    for (int c = colRecipe; c <= colExpires; ++c) cells << lines_->Cell(row, c);
    return cells;
}

qint32 frmRecipeCouponSearchResults::LineCouponID(qint64 row) const { return lines_->CouponOf(row).id; }

QString frmRecipeCouponSearchResults::SelectedRecipe() const { return recipe_; }

void frmRecipeCouponSearchResults::GetSearchResults(const QString& recipeSql, qint32 expireDays) {
    expireDays_ = expireDays;
    recipe_.clear();
    lines_->Reset();
    pbProgress->show();
    searching_ = true;
    stopped_ = false;
    // Only Close is open to the person while the search runs.
    for (QAction* a : tbrMain->actions()) a->setEnabled(a->objectName() == QLatin1String("Close"));
    const bool finished = Trap(QStringLiteral("frmRecipeCouponSearchResults.GetSearchResults"), false, [&] {
        lines_->LoadCoupons();
        Recordset rs;
        rs.Open(recipeSql, ConnectionMain(), adOpenStatic, adLockReadOnly);
        const qint32 count = rs.RecordCount();
        pbProgress->setRange(0, qMax(count, 1));
        pbProgress->setValue(0);
        QElapsedTimer clock;
        clock.start();
        qint64 lastTick = -kTickMs;
        bool fitted = false;
        int done = 0;
        for (; !rs.IsEOF(); rs.MoveNext()) {
            const QString title = TextOf(rs.Field(QStringLiteral("Title")));
            if (clock.elapsed() - lastTick >= kTickMs) {
                lastTick = clock.elapsed();
                lblStatus->setText(QStringLiteral("Checking ") + title + QStringLiteral(" ..."));
                pbProgress->setValue(done);
                lines_->ShowAvailable();
                if (!fitted && lines_->rowCount(QModelIndex()) > 0) {
                    FitColumns();
                    fitted = true;
                }
                QCoreApplication::processEvents();
                if (stopped_) return false;
            }
            const int recipe = lines_->AddRecipe(title);
            for (int slot = 1; slot <= PackedIngredient::LastShownSlot; ++slot) {
                const QString packed = TextOf(rs.Field(PackedIngredient::ColumnName(slot)));
                if (packed.trimmed().isEmpty()) continue;
                lines_->AddIngredient(recipe, PackedIngredient::Field(packed, 2));
            }
            ++done;
        }
        pbProgress->setValue(pbProgress->maximum());
        return true;
    });
    searching_ = false;
    lines_->ShowAvailable();
    for (QAction* a : tbrMain->actions()) a->setEnabled(true);
    if (stopped_) {
        close();
        return;
    }
    FitColumns();
    if (!finished) return;
    lblStatus->setText(QStringLiteral("Done."));
    pbProgress->hide();
    if (lines_->Total() == 0) {
        MsgBox(QStringLiteral("No matches were found at this time. Please try after more Coupons and Recipes have been "
                              "added."),
               Box::Information, QStringLiteral("No Matches"));
        // Nothing to look at: the results go with the box.
        close();
    }
}

void frmRecipeCouponSearchResults::FitColumns() {
    // The lines in view decide; the last column takes what is left.
    for (int c = colRecipe; c < colExpires; ++c) {
        lvSearchResults->resizeColumnToContents(c);
        lvSearchResults->setColumnWidth(c, lvSearchResults->columnWidth(c) + 12);
    }
}

// Closing while the search runs (the window's close box, Escape) only stops
// it: the search closes the screen when it sees that, since the screen must
// outlive the search that is still using it.
void frmRecipeCouponSearchResults::closeEvent(QCloseEvent* event) {
    if (searching_) {
        stopped_ = true;
        event->ignore();
        hide();
        return;
    }
    QDialog::closeEvent(event);
}

void frmRecipeCouponSearchResults::done(int result) {
    if (searching_) {
        stopped_ = true;
        hide();
        return;
    }
    QDialog::done(result);
}

void frmRecipeCouponSearchResults::lvSearchResults_ItemClick(const QModelIndex& index) {
    Trap(QStringLiteral("frmRecipeCouponSearchResults.lvSearchResults_ItemClick"), [&] {
        recipe_ = index.isValid() ? lines_->Title(index.row()) : QString();
    });
}

void frmRecipeCouponSearchResults::tbrMain_ButtonClick(const QString& key) {
    Trap(QStringLiteral("frmRecipeCouponSearchResults.tbrMain_ButtonClick"), [&] {
        if (key == QLatin1String("Close")) {
            close();
        } else if (key == QLatin1String("Compare") || key == QLatin1String("Meal")) {
            MsgBox(QStringLiteral("This feature will be added soon!"), Box::Information, QStringLiteral("Coming Soon"));
        } else if (key == QLatin1String("Shoplist")) {
            AddRecipeToShoppingList();
        }
    });
}

void frmRecipeCouponSearchResults::AddRecipeToShoppingList() {
    Trap(QStringLiteral("frmRecipeCouponSearchResults.AddRecipeToShoppingList"), [&] {
        const QString recipe = SelectedRecipe();
        if (recipe.isEmpty()) return;
        QString list = Registry().CurrentShoppingList();
        if (list.isEmpty()) list = frmShoppingListSelect::GetListName(this);
        if (list.isEmpty()) return;
        Response = MsgBox(QStringLiteral("Add ") + recipe + QStringLiteral(" to ") + list + QStringLiteral(" ?"),
                          Box::YesNo + Box::Question);
        if (Response != Answer::Yes) return;
        {
            // The list pane is read once, after the whole recipe is on the list.
            NoticeBatch batch;
            QString title = recipe;
            if (!clsRecipies().GenerateList(title, list)) return;
            Notices().ShoppingListChanged();
        }
        Response = MsgBox(QStringLiteral("Would you like to use ") + list + QStringLiteral(" as the default?"),
                          Box::YesNo + Box::Question, QStringLiteral("Set default"));
        if (Response == Answer::Yes) Registry().CurrentShoppingList(list);
    });
}
