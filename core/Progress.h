#pragma once

#include <QString>
#include <memory>

class QProgressDialog;

// Long work (imports, purges, walks over many rows) shows how far it has got
// and keeps the window painting. The dialog appears only when the work lasts
// more than a moment; Cancel is offered only where stopping halfway leaves
// nothing half-done.
class Progress {
public:
    Progress(const QString& label, int total, bool cancellable);
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    // Reports `done` of the total; false once the person has cancelled.
    bool Step(int done);
    bool Cancelled() const;

private:
    std::unique_ptr<QProgressDialog> dialog_;
    int total_ = 0;
    int shown_ = -1;
};
