#include "base/user_interaction.h"
#include "support/test_environment.h"
#include "ui/frm_main.h"
#include "ui/frm_progress.h"
#include "ui/qt_interaction.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QMessageBox>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <memory>

// Messages, questions and the progress window belong to the window in front of the
// person and centre on it, not on the screen.

namespace {

// The distance between the centres of two rectangles, in pixels.
int CentreDistance(const QRect &first, const QRect &second)
{
    return (first.center() - second.center()).manhattanLength();
}

} // namespace

class TestQtInteraction : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        session_ = std::make_unique<cTestSession>();
        window_ = std::make_unique<frmMain>();
        window_->show();
        // Far from the centre of the screen, so that centring on it would show.
        window_->setGeometry(20, 20, 700, 500);
        QVERIFY(QTest::qWaitForWindowExposed(window_.get()));
        // As when another program has the focus: no window of ours is active, and
        // the main window is still the one a message belongs to.
        QApplication::setActiveWindow(nullptr);
    }
    void cleanup()
    {
        window_.reset();
        session_.reset();
    }

    void messageCentresOnTheMainWindow()
    {
        cQtInteraction interaction;
        QWidget *parent = nullptr;
        QRect shownAt;
        QTimer::singleShot(0, this, [&] {
            auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
            if (!box)
                return;
            parent = box->parentWidget();
            shownAt = box->frameGeometry();
            box->accept();
        });
        interaction.ShowMessage(QStringLiteral("Done."), MessageIcon::Information,
                                QStringLiteral("Velmora!"));
        QCOMPARE(parent, window_.get());
        QVERIFY2(CentreDistance(shownAt, window_->frameGeometry()) < 40,
                 qPrintable(QStringLiteral("%1,%2 against %3,%4")
                                .arg(shownAt.center().x())
                                .arg(shownAt.center().y())
                                .arg(window_->frameGeometry().center().x())
                                .arg(window_->frameGeometry().center().y())));
    }

    void questionCentresOnTheMainWindow()
    {
        cQtInteraction interaction;
        QWidget *parent = nullptr;
        QTimer::singleShot(0, this, [&] {
            if (auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget())) {
                parent = box->parentWidget();
                box->button(QMessageBox::No)->click();
            }
        });
        QVERIFY(!interaction.AskYesNo(QStringLiteral("Go on?"), QStringLiteral("Velmora!")));
        QCOMPARE(parent, window_.get());
    }

    void progressCentresOnTheMainWindow()
    {
        cQtInteraction interaction;
        interaction.ProgressStart(QStringLiteral("Copying the BCF Master List"), 100);
        auto *progress = window_->findChild<frmProgress *>();
        QVERIFY(progress);
        QVERIFY(progress->isVisible());
        QVERIFY2(CentreDistance(progress->frameGeometry(), window_->frameGeometry()) < 40,
                 qPrintable(QStringLiteral("%1,%2")
                                .arg(progress->frameGeometry().center().x())
                                .arg(progress->frameGeometry().center().y())));
        interaction.ProgressTerminate();
    }

    void fileDialogOpensInDocumentsThenInTheLastFolderWithItsKindOfFile()
    {
        cQtInteraction interaction;
        QTemporaryDir lists;
        const QString list = lists.filePath(QStringLiteral("Players.dbf"));
        QFile(list).open(QIODevice::WriteOnly);
        const cFileRequest request{
            QStringLiteral("Open"), QString(), QStringLiteral("Players.dbf"), QString(), 1,
            QStringLiteral("dbf")};
        QString firstFolder;
        QStringList filters;
        QString selectedFilter;
        QTimer::singleShot(0, this, [&] {
            auto *dialog = qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
            if (!dialog)
                return;
            firstFolder = dialog->directory().absolutePath();
            filters = dialog->nameFilters();
            selectedFilter = dialog->selectedNameFilter();
            dialog->selectFile(list);
            QMetaObject::invokeMethod(dialog, "accept");
        });
        QCOMPARE(interaction.ChooseOpenFile(request), QDir::toNativeSeparators(list));
        QCOMPARE(firstFolder,
                 QDir(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation))
                     .absolutePath());
        QCOMPARE(filters, (QStringList{QStringLiteral("dBase files (*.dbf)"),
                                       QStringLiteral("All files (*)")}));
        QVERIFY2(selectedFilter.startsWith(QStringLiteral("dBase files")),
                 qPrintable(selectedFilter));

        QString secondFolder;
        QTimer::singleShot(0, this, [&] {
            if (auto *dialog = qobject_cast<QFileDialog *>(QApplication::activeModalWidget())) {
                secondFolder = dialog->directory().absolutePath();
                dialog->reject();
            }
        });
        QVERIFY(interaction.ChooseOpenFile(request).isEmpty());
        QCOMPARE(secondFolder, QDir(lists.path()).absolutePath());
    }

private:
    std::unique_ptr<cTestSession> session_;
    std::unique_ptr<frmMain> window_;
};

VELMORA_WIDGET_TEST_MAIN(TestQtInteraction)
#include "test_qt_interaction.moc"
