#include "ui/frm_about.h"

#include "base/app_info.h"
#include "base/busy.h"
#include "base/user_interaction.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSysInfo>
#include <QVBoxLayout>

namespace {

const QString MakerLine = QStringLiteral("Velmora! Software");

QLabel *TitleLabel(QWidget *parent)
{
    auto *title = new QLabel(AppInfo::Title(), parent);
    QFont font = title->font();
    font.setPointSize(font.pointSize() * 2);
    font.setBold(true);
    title->setFont(font);
    title->setAlignment(Qt::AlignCenter);
    return title;
}

QLabel *VersionLabel(QWidget *parent)
{
    cBusySection busy;
    auto *label = new QLabel(VersionCaption(), parent);
    label->setObjectName(QStringLiteral("lblVersion"));
    label->setAlignment(Qt::AlignCenter);
    return label;
}

} // namespace

QString VersionCaption()
{
    return QStringLiteral("Version ") + AppInfo::VersionText();
}

frmSplash::frmSplash(QWidget *parent)
    // Not kept on top: a dialog of the start-up (the New Database dialog, a message)
    // must stand in front of it.
    : QWidget(parent, Qt::SplashScreen | Qt::FramelessWindowHint)
{
    setObjectName(QStringLiteral("frmSplash"));
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(40, 30, 40, 30);
    layout->addWidget(TitleLabel(this));
    lblVersion = VersionLabel(this);
    layout->addWidget(lblVersion);
    // The platform the program runs on, as the system names it.
    auto *platform = new QLabel(QSysInfo::prettyProductName(), this);
    platform->setObjectName(QStringLiteral("lblPlatform"));
    platform->setAlignment(Qt::AlignCenter);
    layout->addWidget(platform);
    auto *maker = new QLabel(MakerLine, this);
    maker->setAlignment(Qt::AlignCenter);
    layout->addWidget(maker);
    setStyleSheet(QStringLiteral("frmSplash { border: 2px solid palette(dark); }"));
}

frmAbout::frmAbout(QWidget *parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("frmAbout"));
    setWindowTitle(tr("About Velmora!"));
    lblVersion = VersionLabel(this);
    cmdOk = new QPushButton(tr("Close"), this);
    cmdOk->setObjectName(QStringLiteral("cmdOk"));
    cmdOk->setDefault(true);
    cmdSysInfo = new QPushButton(tr("System Info"), this);
    cmdSysInfo->setObjectName(QStringLiteral("cmdSysInfo"));
    auto *maker = new QLabel(MakerLine, this);
    maker->setAlignment(Qt::AlignCenter);

    auto *buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(cmdOk);
    buttons->addWidget(cmdSysInfo);
    auto *layout = new QVBoxLayout(this);
    // Room around the texts, and a width that keeps the whole title in the title bar.
    layout->setContentsMargins(32, 24, 32, 20);
    layout->setSpacing(10);
    layout->addWidget(TitleLabel(this));
    layout->addWidget(lblVersion);
    layout->addWidget(maker);
    layout->addSpacing(12);
    layout->addLayout(buttons);
    setMinimumWidth(fontMetrics().horizontalAdvance(windowTitle()) * 2 + 120);

    connect(cmdOk, &QPushButton::clicked, this, &QDialog::accept);
    connect(cmdSysInfo, &QPushButton::clicked, this, &frmAbout::cmdSysInfo_Click);
}

void frmAbout::cmdSysInfo_Click()
{
    cBusySection busy;
    // There is no system-information program to start on this platform, so the
    // fallback message is the answer.
    Interaction().ShowMessage(tr("System Information Is Unavailable At This Time"),
                              MessageIcon::Plain, windowTitle());
}
