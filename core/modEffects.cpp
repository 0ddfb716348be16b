#include "core/modEffects.h"

#include "core/Globals.h"
#include "core/clsRegistry.h"

#include <QMetaObject>
#include <QWidget>

namespace {

QString FormName(const QWidget* form) {
    const QString name = form->objectName();
    return name.isEmpty() ? QString::fromLatin1(form->metaObject()->className()) : name;
}

}  // namespace

void RestoreFormPosition(QWidget* form) {
    if (!form) return;
    clsRegistry& registry = Registry();
    registry.FormSettingName(FormName(form));
    if (const qint32 top = registry.FormTop(); top != 0) form->move(form->x(), top);
    if (const qint32 height = registry.FormHeight(); height != 0) form->resize(form->width(), height);
    if (const qint32 width = registry.FormWidth(); width != 0) form->resize(width, form->height());
    if (const qint32 left = registry.FormLeft(); left != 0) form->move(left, form->y());
}

void SaveFormPosition(QWidget* form, qint32 top, qint32 height, qint32 width, qint32 left) {
    if (!form) return;
    clsRegistry& registry = Registry();
    registry.FormSettingName(FormName(form));
    registry.FormTop(top);
    registry.FormHeight(height);
    registry.FormWidth(width);
    registry.FormLeft(left);
}
