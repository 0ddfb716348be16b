#include "app/frmSplash.h"

#include <QFont>
#include <QLabel>
#include <QVBoxLayout>

frmSplash::frmSplash(QWidget* parent) : QWidget(parent, Qt::SplashScreen | Qt::FramelessWindowHint) {
    setObjectName(QStringLiteral("frmSplash"));
    auto* name = new QLabel(QStringLiteral("Larderkeep"), this);
    QFont big = name->font();
    big.setPointSize(big.pointSize() * 2 + 4);
    big.setBold(true);
    name->setFont(big);
    auto* tag = new QLabel(QStringLiteral("Recipes, meals, lists and the pantry, all in one place"), this);
    auto* web = new QLabel(QStringLiteral("larderkeep.example.org"), this);
    lblProgress = new QLabel(this);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(32, 24, 32, 24);
    layout->addWidget(name);
    layout->addWidget(tag);
    layout->addSpacing(24);
    layout->addWidget(lblProgress);
    layout->addWidget(web);
    setStyleSheet(QStringLiteral("frmSplash { background: #fdf6e3; border: 1px solid #b58900; }"));
    resize(440, 220);
}

void frmSplash::SetStatus(const QString& text) {
    shown_ << text;
    lblProgress->setText(text);
    lblProgress->repaint();
}
