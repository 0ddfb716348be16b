#include "platform/SettingsStore.h"

#include <QDir>
#include <QFileInfo>
#include <QSettings>
#include <QStandardPaths>
#include <memory>

namespace {

// One QSettings per file, made again when the file named by the environment
// changes (each test points at a file of its own).
QSettings& Store() {
    static std::unique_ptr<QSettings> settings;
    static QString path;
    const QString wanted = SettingsFilePath();
    if (!settings || wanted != path) {
        path = wanted;
        QDir().mkpath(QFileInfo(path).absolutePath());
        settings = std::make_unique<QSettings>(path, QSettings::IniFormat);
    }
    return *settings;
}

QString Key(const QString& section, const QString& key) { return section + QLatin1Char('/') + key; }

}  // namespace

QString SettingsFilePath() {
    const QString configured = qEnvironmentVariable("LARDERKEEP_CONFIG");
    if (!configured.isEmpty()) return configured;
    return QDir(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation))
        .filePath(QStringLiteral("Larderkeep/Larderkeep.ini"));
}

QString GetSetting(const QString& section, const QString& key, const QString& def) {
    const QVariant v = Store().value(Key(section, key));
    return v.isValid() ? v.toString() : def;
}

void SaveSetting(const QString& section, const QString& key, const QString& value) {
    QSettings& s = Store();
    s.setValue(Key(section, key), value);
    s.sync();
}

void DeleteSetting(const QString& section, const QString& key) {
    QSettings& s = Store();
    s.remove(Key(section, key));
    s.sync();
}

bool HasSetting(const QString& section, const QString& key) { return Store().contains(Key(section, key)); }
