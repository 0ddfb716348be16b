#include "platform/FirstStart.h"

#include "platform/Database.h"
#include "platform/ProgramFolder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

// The resources live in a static library, whose registration the linker would
// otherwise drop.
static void EnsureResources() {
    static const bool done = [] {
        Q_INIT_RESOURCE(resources);
        return true;
    }();
    Q_UNUSED(done);
}

namespace {

QString ReadResource(const QString& name) {
    QFile f(name);
    if (!f.open(QIODevice::ReadOnly)) throw DbError(QStringLiteral("The program's data file %1 is missing.").arg(name));
    return QString::fromUtf8(f.readAll());
}

bool CopyResource(const QString& resource, const QString& target) {
    if (!QFile::exists(resource)) return true;  // not every build ships every file
    QFile::remove(target);
    if (!QFile::copy(resource, target)) return false;
    QFile::setPermissions(target, QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::ReadOther);
    return true;
}

const QStringList kWordLists = {QStringLiteral("/usr/share/dict/words"),
                                QStringLiteral("/usr/share/dict/american-english")};

}  // namespace

namespace FirstStart {

QStringList TemplateScripts() {
    EnsureResources();
    QStringList scripts{ReadResource(QStringLiteral(":/schema.sql"))};
    const QDir data(QStringLiteral(":/data"));
    for (const QString& name : data.entryList({QStringLiteral("*.sql")}, QDir::Files, QDir::Name))
        scripts << ReadResource(data.filePath(name));
    return scripts;
}

void CreateTemplateDatabase(const QString& path) {
    static QTemporaryDir cacheDir;
    static QString cached;
    if (cached.isEmpty() || !QFile::exists(cached)) {
        const QString built = cacheDir.filePath(QStringLiteral("template.mdb"));
        Database::CreateFile(built, TemplateScripts());
        cached = built;
    }
    QFile::remove(path);
    if (!QFile::copy(cached, path)) throw DbError(QStringLiteral("The database could not be written to %1.").arg(path));
    QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup);
}

bool WriteDictionary(const QString& path) {
    for (const QString& source : kWordLists) {
        QFile in(source);
        if (!in.open(QIODevice::ReadOnly)) continue;
        QFile out(path);
        if (!out.open(QIODevice::WriteOnly | QIODevice::Truncate)) return false;
        while (!in.atEnd()) {
            QByteArray word = in.readLine().trimmed();
            if (word.isEmpty()) continue;
            out.write(word);
            out.write("\r\n");
        }
        return true;
    }
    return false;
}

void Seed(const QString& folder) {
    EnsureResources();
    const QDir dir(folder);
    CreateTemplateDatabase(dir.filePath(QStringLiteral("Larderkeep.mdb")));
    WriteDictionary(dir.filePath(QStringLiteral("dictionary.dic")));
    CopyResource(QStringLiteral(":/TIPOFDAY.TXT"), dir.filePath(QStringLiteral("TIPOFDAY.TXT")));
    CopyResource(QStringLiteral(":/TrivialItem.lis"), dir.filePath(QStringLiteral("TrivialItem.lis")));
    dir.mkpath(QStringLiteral("Export"));
    dir.mkpath(QStringLiteral("Images"));
}

bool Run(QString* error) {
    const QString folder = ProgramFolder::Path();
    if (QFileInfo::exists(folder)) return true;
    auto failed = [&](const QString& why) {
        if (error)
            *error = QStringLiteral(
                         "Larderkeep could not create its data folder %1 (%2). "
                         "Please check that you may write there, or set LARDERKEEP_HOME to another folder.")
                         .arg(QDir::toNativeSeparators(folder), why);
        return false;
    };
    if (!QDir().mkpath(folder)) return failed(QStringLiteral("the folder cannot be created"));
    try {
        Seed(folder);
    } catch (const std::exception& e) {
        // A half-made folder would later look like a missing database; start clean next time.
        QDir(folder).removeRecursively();
        return failed(QString::fromUtf8(e.what()));
    }
    return true;
}

}  // namespace FirstStart
