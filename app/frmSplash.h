#pragma once

#include <QStringList>
#include <QWidget>

class QLabel;

// Shown while the start sequence runs; its status line is the only thing that
// repaints during the long steps.
class frmSplash : public QWidget {
    Q_OBJECT
public:
    explicit frmSplash(QWidget* parent = nullptr);
    void SetStatus(const QString& text);
    // Every status text shown, in order.
    const QStringList& Shown() const { return shown_; }

    QLabel* lblProgress;

private:
    QStringList shown_;
};
