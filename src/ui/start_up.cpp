#include "ui/start_up.h"

#include "base/app_info.h"
#include "base/busy.h"
#include "base/fatal_fault.h"
#include "base/user_interaction.h"
#include "database/database.h"
#include "database/sql.h"
#include "session/control.h"
#include "session/globals.h"
#include "ui/frm_about.h"
#include "ui/frm_main.h"
#include "ui/frm_new_db.h"

#include <QApplication>
#include <QDir>
#include <QLocale>
#include <QScreen>

QString FailureMessage(const QString &source, int number, const QString &description)
{
    return AppInfo::Title() + QStringLiteral(" (Version: ") + AppInfo::VersionText() + u')' +
           u'\n' + QDir::toNativeSeparators(QCoreApplication::applicationDirPath()) +
           QStringLiteral("\n\n") + QStringLiteral("An unknown error has occured") + u'\n' +
           source + u'\n' + QString::number(number) + QStringLiteral(": ") + description + u'\n';
}

void ShowFailure(const QString &source, int number, const QString &description)
{
    Interaction().ShowMessage(FailureMessage(source, number, description), MessageIcon::Critical,
                              AppInfo::Title());
}

cStartUp::cStartUp() = default;

cStartUp::~cStartUp()
{
    // The main window goes before the session it reads from.
    mainWindow_.reset();
    splash_.reset();
}

bool cStartUp::Main()
{
    BeginBusy();
    try {
        const bool running = RunSequence();
        EndBusy();
        return running;
    } catch (const cFatalFault &fault) {
        EndBusy();
        splash_.reset();
        ShowFailure(fault.Source(), fault.Number(), fault.Description());
    } catch (const std::exception &error) {
        EndBusy();
        splash_.reset();
        ShowFailure(AppInfo::Title(), 0, QString::fromLocal8Bit(error.what()));
    }
    exitCode_ = 1;
    return false;
}

bool cStartUp::IsAnotherCopyRunning()
{
    // The lock lives in the data folder, beside the file that two copies would share.
    const QString folder = cDatabase::ConfiguredDataDir();
    if (!QDir().mkpath(folder))
        RaiseFatal(AppInfo::Title(), FaultNumber::File,
                   QStringLiteral("The data folder ") + folder +
                       QStringLiteral(" cannot be created."));
    singleCopyLock_ = std::make_unique<QLockFile>(folder + QStringLiteral("Velmora.lock"));
    singleCopyLock_->setStaleLockTime(0);
    if (singleCopyLock_->tryLock(0))
        return false;
    if (singleCopyLock_->error() == QLockFile::PermissionError)
        RaiseFatal(AppInfo::Title(), FaultNumber::File,
                   QStringLiteral("The data folder ") + folder +
                       QStringLiteral(" cannot be written."));
    return true;
}

bool cStartUp::CreateDatabase()
{
    if (Database().Create([] { return Database().Copy(Database().SourceDb()); })) {
        TellWhatWasImported();
        return true;
    }
    // Nothing half-filled was kept, so the next start offers the choice between a
    // new database and an import again.
    Interaction().ShowMessage(
        Database().LoadFaultText() +
            QStringLiteral("\n\nNo database has been created. The next time ") + AppInfo::Title() +
            QStringLiteral(" starts, you can create a new database or "
                           "import again."),
        MessageIcon::Exclamation, AppInfo::Title());
    return false;
}

void cStartUp::TellWhatWasImported()
{
    QString told;
    if (!Database().SourceDb().isEmpty()) {
        const QLocale english(QLocale::English);
        const auto count = [&english](const char *table) {
            return english.toString(
                SqlScalar(QStringLiteral("Select Count(*) From ") + QString::fromLatin1(table))
                    .toLongLong());
        };
        told = count("Master") + QStringLiteral(" players, ") + count("Velmora") +
               QStringLiteral(" tournaments and ") + count("Club") +
               QStringLiteral(" clubs loaded");
    }
    for (const QString &note : Database().LoadNotes())
        told += (told.isEmpty() ? QString() : QStringLiteral("\n\n")) + note;
    if (!told.isEmpty())
        Interaction().ShowMessage(told, MessageIcon::Information, AppInfo::Title());
}

bool cStartUp::RunSequence()
{
    splash_ = std::make_unique<frmSplash>();
    splash_->adjustSize();
    if (const QScreen *screen = QGuiApplication::primaryScreen())
        splash_->move(screen->availableGeometry().center() - splash_->rect().center());
    splash_->show();
    QApplication::processEvents();

    if (IsAnotherCopyRunning()) {
        splash_.reset();
        Interaction().ShowMessage(QStringLiteral("You can only run one copy of ") +
                                      AppInfo::Title() + QStringLiteral(" on a machine at a time!"),
                                  MessageIcon::Critical, AppInfo::Title());
        exitCode_ = 0;
        return false;
    }

    CreateSessionObjects();

    if (!Database().Exists()) {
        EndBusy();
        frmNewDb newDb;
        newDb.exec();
        if (newDb.Cancelled) {
            BeginBusy();
            exitCode_ = 0;
            splash_.reset();
            return false;
        }
        BeginBusy();
        splash_->repaint();
        if (!CreateDatabase()) {
            exitCode_ = 1;
            splash_.reset();
            return false;
        }
    }

    OpenSessionDatabase();

    mainWindow_ = std::make_unique<frmMain>();
    QApplication::processEvents();
    mainWindow_->show();
    splash_.reset();
    return true;
}
