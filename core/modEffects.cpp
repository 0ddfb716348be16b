#include "core/modEffects.h"

#include "core/Globals.h"
#include "core/clsRegistry.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QMetaObject>
#include <QPainter>
#include <QThread>
#include <QWidget>
#include <algorithm>

namespace {

QString FormName(const QWidget* form) {
    const QString name = form->objectName();
    return name.isEmpty() ? QString::fromLatin1(form->metaObject()->className()) : name;
}

// The rectangle the effect draws: a bare, borderless window of one colour that
// never takes the focus from the user.
class EffectRectangle : public QWidget {
public:
    explicit EffectRectangle(const QColor& colour)
        : QWidget(nullptr,
                  Qt::ToolTip | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint | Qt::X11BypassWindowManagerHint),
          colour_(colour) {
        setAttribute(Qt::WA_ShowWithoutActivating);
        setAttribute(Qt::WA_TransparentForMouseEvents);
        setFocusPolicy(Qt::NoFocus);
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter p(this);
        p.fillRect(rect(), colour_);
        p.setPen(colour_.darker(140));
        p.drawRect(rect().adjusted(0, 0, -1, -1));
    }

private:
    QColor colour_;
};

// Screens without a display (tests, benchmarks) get every frame but no pause.
bool Headless() {
    const QString platform = QGuiApplication::platformName();
    return platform == QLatin1String("offscreen") || platform == QLatin1String("minimal");
}

void Animate(QWidget* form, const QList<QRect>& frames) {
    if (frames.isEmpty()) return;
    EffectRectangle shape(form->palette().color(QPalette::Window));
    const bool headless = Headless();
    for (const QRect& r : frames) {
        shape.setGeometry(r);
        if (!shape.isVisible()) shape.show();
        shape.repaint();
        if (!headless) {
            QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
            QThread::msleep(10);
        }
    }
    shape.hide();
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

int ExplodeSteps(qint16 rate) {
    if (rate <= 0) return 50;
    return qBound(2, (5000 + rate / 2) / rate, 50);
}

QList<QRect> ExplodeFrames(const QRect& target, int steps) {
    QList<QRect> frames;
    if (!target.isValid() || steps < 1) return frames;
    const QPoint centre = target.center();
    for (int i = 1; i <= steps; ++i) {
        if (i == steps) {
            frames << target;
            break;
        }
        const int w = qMax(1, target.width() * i / steps);
        const int h = qMax(1, target.height() * i / steps);
        frames << QRect(centre.x() - w / 2, centre.y() - h / 2, w, h);
    }
    return frames;
}

QRect TargetRect(QWidget* form) {
    if (!form) return QRect();
    if (!form->isVisible() && !form->testAttribute(Qt::WA_Resized)) form->adjustSize();
    QSize size = form->size();
    if (form->isVisible() || form->testAttribute(Qt::WA_Moved)) return QRect(form->pos(), size);
    if (QWidget* owner = form->parentWidget() ? form->parentWidget()->window() : nullptr) {
        // A dialog opens centred over its owner; put it there now so that the
        // rectangle ends exactly where the window appears.
        const QRect over = owner->frameGeometry();
        const QPoint topLeft(over.center().x() - size.width() / 2, over.center().y() - size.height() / 2);
        form->move(topLeft);
        return QRect(topLeft, size);
    }
    return QRect(form->pos(), size);
}

void ExplodeForm(QWidget* form, qint16 rate) {
    if (!form) return;
    RestoreFormPosition(form);
    if (!Registry().AllowExplode()) return;
    Animate(form, ExplodeFrames(TargetRect(form), ExplodeSteps(rate)));
}

void ImplodeForm(QWidget* form, qint16 rate) {
    if (!form || !Registry().AllowExplode()) return;
    const QRect from = form->isVisible() ? form->frameGeometry() : TargetRect(form);
    form->hide();
    QList<QRect> frames = ExplodeFrames(from, ExplodeSteps(rate));
    std::reverse(frames.begin(), frames.end());
    Animate(form, frames);
}
