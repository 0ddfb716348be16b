#include "core/clsRegistry.h"

#include "core/Values.h"
#include "platform/ProgramFolder.h"
#include "platform/SettingsStore.h"

namespace {

const QString kSettings = QStringLiteral("Settings");

// Absent keys give the default without writing it.
QString Read(const QString& key, const QString& def) { return GetSetting(kSettings, key, def); }
void Write(const QString& key, const QString& value) { SaveSetting(kSettings, key, value); }

template <class T> T Convert(const QString& text);
template <> QString Convert<QString>(const QString& text) { return text; }
template <> bool Convert<bool>(const QString& text) { return CBool(text); }
template <> qint16 Convert<qint16>(const QString& text) { return CInt(text); }
template <> qint32 Convert<qint32>(const QString& text) { return CLng(text); }

QString Text(const QString& v) { return v; }
QString Text(bool v) { return v ? QStringLiteral("True") : QStringLiteral("False"); }
QString Text(qint16 v) { return QString::number(v); }
QString Text(qint32 v) { return QString::number(v); }
QString Text(const char* v) { return QString::fromUtf8(v); }
QString Text(const QVariant& v) { return TextOf(v); }

template <class T, class D>
T ReadTyped(const QString& key, const D& def) {
    if (!HasSetting(kSettings, key)) {
        if constexpr (std::is_same_v<T, QString>) return Text(def);
        else return T(def);
    }
    return Convert<T>(Read(key, QString()));
}

// A variant setting reads as the stored text, or the default as given.
QVariant ReadVariant(const QString& key, const QVariant& def) {
    return HasSetting(kSettings, key) ? QVariant(Read(key, QString())) : def;
}

}  // namespace

QString clsRegistry::Computed(const char* name) {
    const QString n = QString::fromUtf8(name);
    return n.isEmpty() ? ProgramFolder::Path() : ProgramFolder::File(n);
}

#define LK_REG_DEFINE(Type, Prop, Key, Default) \
    Type clsRegistry::Prop() { return ReadTyped<Type>(QStringLiteral(Key), Default); } \
    void clsRegistry::Prop(Type v) { Write(QStringLiteral(Key), Text(v)); }

LK_REG_GENERAL(LK_REG_DEFINE)
LK_REG_GENERAL2(LK_REG_DEFINE)
LK_REG_GENERAL3(LK_REG_DEFINE)
LK_REG_GENERAL4(LK_REG_DEFINE)
LK_REG_GENERAL5(LK_REG_DEFINE)
LK_REG_GENERAL6(LK_REG_DEFINE)
LK_REG_COUPONS(LK_REG_DEFINE)
LK_REG_ALTERNATIVES(LK_REG_DEFINE)
LK_REG_UPKEEP(LK_REG_DEFINE)
LK_REG_MAIL(LK_REG_DEFINE)
LK_REG_RDA_NUMBERS(LK_REG_DEFINE)
LK_REG_RDA_TEXTS(LK_REG_DEFINE)
LK_REG_RDA_TEXTS2(LK_REG_DEFINE)

QVariant clsRegistry::CurrentListFont() { return ReadVariant(QStringLiteral("CUR_LIST_FNT"), QVariant()); }
void clsRegistry::CurrentListFontWrite(const QVariant& v) { Write(QStringLiteral("CUR_LIST_FNT"), Text(v)); }
QVariant clsRegistry::CurrentListFontColor() { return ReadVariant(QStringLiteral("CUR_LIST_FNT_CLR"), QVariant()); }
void clsRegistry::CurrentListFontColorWrite(const QVariant& v) { Write(QStringLiteral("CUR_LIST_FNT_CLR"), Text(v)); }
QString clsRegistry::DateDisplayFormat() { return Read(QStringLiteral("DATE_DISPLAY"), QStringLiteral("mm/dd/yyyy")); }
void clsRegistry::DateDisplayFormatWrite(const QString& v) { Write(QStringLiteral("DATE_DISPLAY"), v); }
QVariant clsRegistry::MainToolbar() { return ReadVariant(QStringLiteral("MAIN_TOOLBAR"), QVariant()); }
bool clsRegistry::PalmAppsInstalled() { return ReadTyped<bool>(QStringLiteral("Palm_Installed"), false); }
QVariant clsRegistry::MessageView() { return ReadVariant(QStringLiteral("MESSAGE_VIEW"), 3); }
void clsRegistry::MessageViewWrite(const QVariant& v) { Write(QStringLiteral("MESSAGE_VIEW"), Text(v)); }
QVariant clsRegistry::PrintBackground() { return ReadVariant(QStringLiteral("PRINT_BACKGROUND"), QVariant()); }
void clsRegistry::PrintBackgroundWrite(const QVariant& v) { Write(QStringLiteral("PRINT_BACKGROUND"), Text(v)); }
QVariant clsRegistry::AllowConversion() { return ReadVariant(QStringLiteral("ALLOW_CONVERT"), QVariant()); }
void clsRegistry::AllowConversionWrite(const QVariant& v) { Write(QStringLiteral("ALLOW_CONVERT"), Text(v)); }
QVariant clsRegistry::PromptBeforeAdd() { return ReadVariant(QStringLiteral("PROMPT_BEFORE_ADD"), true); }
void clsRegistry::PromptBeforeAddSet(const QVariant& v) { Write(QStringLiteral("PROMPT_BEFORE_ADD"), Text(v)); }
bool clsRegistry::DockMeasurements() { return ReadTyped<bool>(QStringLiteral("DOCK_MEASURES"), false); }
void clsRegistry::DockMeasurementsSet(bool v) { Write(QStringLiteral("DOCK_MEASURES"), Text(v)); }

QString clsRegistry::RDAMangenese() { return Read(QStringLiteral("RDA_Copper"), QStringLiteral("3")); }
void clsRegistry::RDAMangenese(const QString& v) { Write(QStringLiteral("RDA_Mangenese"), v); }

qint32 clsRegistry::FormTop() { return ReadTyped<qint32>(formName_ + QStringLiteral("-Top"), 0); }
void clsRegistry::FormTop(qint32 v) { Write(formName_ + QStringLiteral("-Top"), Text(v)); }
qint32 clsRegistry::FormHeight() { return ReadTyped<qint32>(formName_ + QStringLiteral("-Height"), 0); }
void clsRegistry::FormHeight(qint32 v) { Write(formName_ + QStringLiteral("-Height"), Text(v)); }
qint32 clsRegistry::FormWidth() { return ReadTyped<qint32>(formName_ + QStringLiteral("-Width"), 0); }
void clsRegistry::FormWidth(qint32 v) { Write(formName_ + QStringLiteral("-Width"), Text(v)); }
qint32 clsRegistry::FormLeft() { return ReadTyped<qint32>(formName_ + QStringLiteral("-Left"), 0); }
void clsRegistry::FormLeft(qint32 v) { Write(formName_ + QStringLiteral("-Left"), Text(v)); }

float clsRegistry::SpellLeft() { return float(CDbl(GetSetting(QStringLiteral("WindowSettings"), QStringLiteral("SpellLeft"), QStringLiteral("0")))); }
void clsRegistry::SpellLeft(float v) { SaveSetting(QStringLiteral("WindowSettings"), QStringLiteral("SpellLeft"), QString::number(v)); }
float clsRegistry::SpellTop() { return float(CDbl(GetSetting(QStringLiteral("WindowSettings"), QStringLiteral("SpellTop"), QStringLiteral("0")))); }
void clsRegistry::SpellTop(float v) { SaveSetting(QStringLiteral("WindowSettings"), QStringLiteral("SpellTop"), QString::number(v)); }

QString clsRegistry::GetValue(const QString& section, const QString& key, const QString& def) {
    return GetSetting(section, key, def);
}
void clsRegistry::SetValue(const QString& section, const QString& key, const QString& value) {
    SaveSetting(section, key, value);
}
