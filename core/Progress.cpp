#include "core/Progress.h"

#include "core/Globals.h"

#include <QApplication>
#include <QProgressDialog>

Progress::Progress(const QString& label, int total, bool cancellable) : total_(qMax(1, total)) {
    if (!qobject_cast<QApplication*>(QCoreApplication::instance())) return;
    dialog_ = std::make_unique<QProgressDialog>(label, cancellable ? QStringLiteral("Cancel") : QString(), 0, total_,
                                                MainWindow());
    dialog_->setWindowTitle(QStringLiteral("Larderkeep"));
    dialog_->setWindowModality(Qt::WindowModal);
    dialog_->setMinimumDuration(400);
    dialog_->setAutoClose(true);
    dialog_->setValue(0);
}

Progress::~Progress() {
    if (dialog_) dialog_->setValue(total_);
}

bool Progress::Step(int done) {
    if (!dialog_) return true;
    // Each hundredth of the way is enough for the eye and costs little.
    const int step = qMax(1, total_ / 100);
    if (done < total_ && done / step == shown_) return !dialog_->wasCanceled();
    shown_ = done / step;
    dialog_->setValue(qMin(done, total_));
    return !dialog_->wasCanceled();
}

bool Progress::Cancelled() const { return dialog_ && dialog_->wasCanceled(); }
