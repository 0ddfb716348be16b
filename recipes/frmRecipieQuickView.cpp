#include "recipes/frmRecipieQuickView.h"

#include "core/ChangeNotices.h"
#include "core/modEffects.h"
#include "measures/frmMeasures.h"
#include "platform/TextFile.h"
#include "publish/clsCommunications.h"
#include "platform/Ui.h"
#include "recipes/RecipeCommands.h"
#include "recipes/clsRecipies.h"

#include <QAction>
#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QFontDatabase>
#include <QMenu>
#include <QPlainTextEdit>
#include <QToolBar>
#include <QToolButton>
#include <QUrl>
#include <QVBoxLayout>

std::function<void(const QString& path)> frmRecipieQuickView::OpenFile = [](const QString& path) {
    QDesktopServices::openUrl(QUrl::fromLocalFile(path));
};

namespace {

struct Key {
    const char* key;
    const char* caption;
};

const Key kButtons[] = {{"Close", "Close"},
                        {"Top", "Keep on Top"},
                        {"PrintRecipe", "Print"},
                        {"Preview", "Preview"},
                        {"PrintToFile", "Print to File"},
                        {"EditRecipe", "Edit"},
                        {"ToggleFavorite", "Favorite"},
                        {"Delete", "Delete"},
                        {"Nutrition", "Nutrition"},
                        {"Measure", "Measures"},
                        {"Picture", "Picture"},
                        {"AdjustServing", "Servings"},
                        {"AddToList", "Add to List"}};

const Key kMenu[] = {{"CourseAppetizer", "Course: Appetizer"},
                     {"CourseMain", "Course: Main Course"},
                     {"CourseDesert", "Course: Desert"},
                     {"HTML", "Save as HTML..."},
                     {"Text", "Save as Text..."},
                     {"RecipeAttach", "E-mail as Attachment"},
                     {"RecipeBody", "E-mail in the Message"}};

// A title made fit to be a file name.
QString FileStem(QString title) {
    for (QChar c : QStringLiteral("\\/:*?\"<>|")) title.replace(c, QLatin1Char('_'));
    return title.trimmed();
}

}  // namespace

frmRecipieQuickView::frmRecipieQuickView(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmRecipieQuickView"));
    setWindowTitle(QStringLiteral("Recipe"));
    tbRecipe = new QToolBar(this);
    tbRecipe->setObjectName(QStringLiteral("tbRecipe"));
    tbRecipe->setToolButtonStyle(Qt::ToolButtonTextOnly);
    for (const Key& k : kButtons) {
        const QString key = QString::fromLatin1(k.key);
        QAction* a = tbRecipe->addAction(QString::fromLatin1(k.caption));
        a->setObjectName(key);
        if (key == QLatin1String("Top")) a->setCheckable(true);
        connect(a, &QAction::triggered, this, [this, key] { tbRecipe_ButtonClick(key); });
        if (key == QLatin1String("Delete") || key == QLatin1String("Picture")) tbRecipe->addSeparator();
    }
    mnuEmail = new QMenu(this);
    for (const Key& k : kMenu) {
        const QString key = QString::fromLatin1(k.key);
        QAction* a = mnuEmail->addAction(QString::fromLatin1(k.caption));
        a->setObjectName(key);
        connect(a, &QAction::triggered, this, [this, key] { tbRecipe_ButtonMenuClick(key); });
        if (key == QLatin1String("CourseDesert") || key == QLatin1String("Text")) mnuEmail->addSeparator();
    }
    btnEmail = new QToolButton(this);
    btnEmail->setObjectName(QStringLiteral("Email"));
    btnEmail->setText(QStringLiteral("More"));
    btnEmail->setMenu(mnuEmail);
    btnEmail->setPopupMode(QToolButton::InstantPopup);
    tbRecipe->addWidget(btnEmail);

    txtRecipie = new QPlainTextEdit(this);
    txtRecipie->setObjectName(QStringLiteral("txtRecipie"));
    txtRecipie->setReadOnly(true);
    // The ingredient lines line up in columns.
    txtRecipie->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->addWidget(tbRecipe);
    layout->addWidget(txtRecipie, 1);
    resize(860, 560);
    RestoreFormPosition(this);
}

void frmRecipieQuickView::hideEvent(QHideEvent* event) {
    const QRect frame = frameGeometry();
    SaveFormPosition(this, frame.top(), height(), width(), frame.left());
    QDialog::hideEvent(event);
}

QAction* frmRecipieQuickView::Button(const QString& key) const {
    return tbRecipe->findChild<QAction*>(key, Qt::FindDirectChildrenOnly)
               ? tbRecipe->findChild<QAction*>(key, Qt::FindDirectChildrenOnly)
               : findChild<QAction*>(key);
}

void frmRecipieQuickView::Display(const QString& title) {
    title_ = title;
    setWindowTitle(QStringLiteral("Recipe - ") + title);
    clsRecipies recipes;
    txtRecipie->setPlainText(recipes.Display(title));
    Button(QStringLiteral("Picture"))->setEnabled(!ImagePath.isEmpty());
}

void frmRecipieQuickView::ComingSoon() {
    MsgBox(QStringLiteral("This feature will be added soon!"), Box::Information, QStringLiteral("Coming Soon"));
}

void frmRecipieQuickView::tbRecipe_ButtonClick(const QString& key) {
    if (key == QLatin1String("Close")) {
        close();
    } else if (key == QLatin1String("Top")) {
        const bool top = !(windowFlags() & Qt::WindowStaysOnTopHint);
        setWindowFlag(Qt::WindowStaysOnTopHint, top);
        Button(key)->setChecked(top);
        show();
    } else if (key == QLatin1String("PrintRecipe")) {
        clsRecipies().PrintPreview(title_, 1, QString());
    } else if (key == QLatin1String("Preview")) {
        clsRecipies().PrintPreview(title_, 2, QString());
    } else if (key == QLatin1String("EditRecipe")) {
        close();
        RecipeCommands::EditRecipe(title_);
    } else if (key == QLatin1String("ToggleFavorite")) {
        close();
        RecipeCommands::mnuPOPToggleFavorite_Click();
    } else if (key == QLatin1String("Delete")) {
        close();
        RecipeCommands::mnuPOPDeleteRecipie_Click();
    } else if (key == QLatin1String("Measure")) {
        frmMeasures measures(this);
        TheUi().ShowModal(&measures);
    } else if (key == QLatin1String("AddToList")) {
        RecipeCommands::AddRecipeToCurrentList(title_);
    } else {
        // PrintToFile, AdjustServing, and the screens not in the program yet.
        ComingSoon();
    }
}

bool frmRecipieQuickView::WriteText(const QString& target) {
    QFile file(target);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Text)) {
        MsgBox(target + QStringLiteral(" could not be written."), Box::Exclamation, QStringLiteral("Notice"));
        return false;
    }
    file.write(txtRecipie->toPlainText().toUtf8());
    return true;
}

QString frmRecipieQuickView::SaveFolder() {
    return TheUi().FolderName(QStringLiteral("Choose a directory where the Recipe will be saved."), QDir::homePath());
}

void frmRecipieQuickView::tbRecipe_ButtonMenuClick(const QString& key) {
    if (key.startsWith(QLatin1String("Course"))) {
        clsRecipies recipes;
        recipes.Name(title_);
        recipes.Course(key == QLatin1String("CourseAppetizer") ? QStringLiteral("Appetizer")
                       : key == QLatin1String("CourseMain")    ? QStringLiteral("Main Course")
                                                               : QStringLiteral("Desert"));
        recipes.SetCourse();
        txtRecipie->setPlainText(clsRecipies().Display(title_));
    } else if (key == QLatin1String("HTML")) {
        const QString folder = SaveFolder();
        if (folder.isEmpty()) return;
        const QString temp = clsRecipies().CreateTempFile(title_, QString());
        if (temp.isEmpty()) return;
        const QString target = QDir(folder).filePath(FileStem(title_) + QStringLiteral(".html"));
        QFile::remove(target);
        QFile::rename(temp, target) || QFile::copy(temp, target);
        QFile::remove(temp);
        if (MsgBox(QStringLiteral("Would you like to view this file?"), Box::YesNo + Box::Question,
                   QStringLiteral("View File")) == Answer::Yes)
            OpenFile(target);
    } else if (key == QLatin1String("Text")) {
        const QString folder = SaveFolder();
        if (folder.isEmpty()) return;
        const QString target = QDir(folder).filePath(FileStem(title_) + QStringLiteral(".txt"));
        if (WriteText(target)) OpenFile(target);
    } else if (key == QLatin1String("RecipeBody")) {
        clsCommunications().SendEmail(QString(), title_, txtRecipie->toPlainText(), QString());
    } else if (key == QLatin1String("RecipeAttach")) {
        // The mail program attaches a file, so the recipe goes as its text file.
        const QString target = QDir(QDir::tempPath()).filePath(FileStem(title_) + QStringLiteral(".txt"));
        if (WriteText(target)) clsCommunications().SendEmail(QString(), title_, QString(), target);
    }
}
