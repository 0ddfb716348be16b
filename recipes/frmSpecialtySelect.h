#pragma once

#include <QDialog>

class QListWidget;

// A choice among the specialties the cookbooks already have.
class frmSpecialtySelect : public QDialog {
    Q_OBJECT
public:
    explicit frmSpecialtySelect(QWidget* parent = nullptr);

    QListWidget* lstSpecialties;
    // The specialty picked, "" when none was.
    QString Choice() const;
};
