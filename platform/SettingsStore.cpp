#include "platform/SettingsStore.h"

#include "platform/RuntimeError.h"

#include <QDir>
#include <QFileInfo>
#include <QSettings>
#include <QStandardPaths>
#include <QStringList>
#include <memory>

namespace {

struct OpenFile {
    QString path;
    std::unique_ptr<QSettings> settings;
};

OpenFile& Cached() {
    static OpenFile file;
    return file;
}

// One QSettings for the file the environment names now; made again when the
// name changes, which tests do for every case.
QSettings& Store() {
    OpenFile& file = Cached();
    const QString wanted = SettingsFilePath();
    if (!file.settings || file.path != wanted) {
        file.settings = std::make_unique<QSettings>(wanted, QSettings::IniFormat);
        file.path = wanted;
    }
    return *file.settings;
}

// The freshest copy of the file. Costs a stat when nothing changed on disk.
QSettings& FreshStore() {
    QSettings& s = Store();
    s.sync();
    return s;
}

// Writes `key` through to the disk. When the file cannot be written the change is
// taken back: Qt keeps unwritten changes in memory for every later reader of the
// file, and a setting that only seemed saved would be lost at the next start.
void Commit(QSettings& s, const QString& key, const QVariant& before) {
    QDir().mkpath(QFileInfo(s.fileName()).absolutePath());
    s.sync();
    if (s.status() != QSettings::AccessError) return;
    if (before.isValid())
        s.setValue(key, before);
    else
        s.remove(key);
    // The status sticks to the object; a new one may succeed once the file can be written.
    Cached().settings.reset();
    throw RuntimeError(QStringLiteral("Permission denied"));
}

QString Path(const QString& section, const QString& key) { return section + QLatin1Char('/') + key; }

}  // namespace

QString SettingsFilePath() {
    const QString configured = qEnvironmentVariable("LARDERKEEP_CONFIG");
    if (!configured.isEmpty()) return configured;
    return QDir(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation))
        .filePath(QStringLiteral("Larderkeep/Larderkeep.ini"));
}

std::optional<QString> FindSetting(const QString& section, const QString& key) {
    const QVariant v = FreshStore().value(Path(section, key));
    if (!v.isValid()) return std::nullopt;
    // A value edited by hand with a comma and no quotes comes back as a list;
    // the program never stores lists, so it was meant as one text.
    if (v.typeId() == QMetaType::QStringList) return v.toStringList().join(QStringLiteral(", "));
    return v.toString();
}

QString GetSetting(const QString& section, const QString& key, const QString& def) {
    return FindSetting(section, key).value_or(def);
}

bool HasSetting(const QString& section, const QString& key) { return FreshStore().contains(Path(section, key)); }

void SaveSetting(const QString& section, const QString& key, const QString& value) {
    QSettings& s = FreshStore();
    const QString path = Path(section, key);
    const QVariant before = s.value(path);
    s.setValue(path, value);
    Commit(s, path, before);
}

void DeleteSetting(const QString& section, const QString& key) {
    QSettings& s = FreshStore();
    const QString path = Path(section, key);
    const QVariant before = s.value(path);
    s.remove(path);
    Commit(s, path, before);
}
