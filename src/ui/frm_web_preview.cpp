#include "ui/frm_web_preview.h"

#include "base/app_info.h"
#include "base/busy.h"
#include "base/user_interaction.h"
#include "ui/file_locations.h"
#include "ui/whole_file_writer.h"

#include <QAction>
#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QTextBrowser>
#include <QToolBar>
#include <QUrl>
#include <QVBoxLayout>

frmWebPreview::frmWebPreview(QWidget *parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("frmWebPreview"));
    setWindowTitle(QStringLiteral("Web page preview"));

    tbCommands = new QToolBar(this);
    tbCommands->setObjectName(QStringLiteral("tbCommands"));
    tbCommands->setToolButtonStyle(Qt::ToolButtonTextOnly);
    SaveAs = tbCommands->addAction(QStringLiteral("&Save As..."));
    SaveAs->setObjectName(QStringLiteral("SaveAs"));
    SaveAs->setShortcut(QKeySequence::Save);
    OpenInBrowser = tbCommands->addAction(QStringLiteral("&Open in Browser"));
    OpenInBrowser->setObjectName(QStringLiteral("OpenInBrowser"));
    OpenInBrowser->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_B));

    brwWebBrowser = new QTextBrowser(this);
    brwWebBrowser->setObjectName(QStringLiteral("brwWebBrowser"));
    // The report's links are not followed inside the preview.
    brwWebBrowser->setOpenLinks(false);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(tbCommands);
    layout->addWidget(brwWebBrowser, 1);
    // A landscape report of 130 columns fits across.
    resize(900, 600);

    connect(SaveAs, &QAction::triggered, this, &frmWebPreview::SaveAs_Click);
    connect(OpenInBrowser, &QAction::triggered, this, &frmWebPreview::OpenInBrowser_Click);
}

void frmWebPreview::ShowPage(const QString &path, QWidget *parent)
{
    frmWebPreview window(parent);
    window.PreviewUrl = path;
    window.exec();
}

void frmWebPreview::showEvent(QShowEvent *event)
{
    brwWebBrowser->setSource(QUrl::fromLocalFile(PreviewUrl), QTextDocument::HtmlResource);
    QDialog::showEvent(event);
}

void frmWebPreview::SaveAs_Click()
{
    cFileRequest request;
    request.title = QStringLiteral("Save As");
    request.folder = FileDialogFolder();
    request.filter = QStringLiteral("HTML (*.htm *.html)|*.htm *.html|All Files(*.*)|*.*");
    request.filterIndex = 1;
    request.defaultExtension = QStringLiteral("htm");
    const QString fileName = Interaction().ChooseSaveFile(request);
    // A cancelled file dialog changes nothing.
    if (fileName.isEmpty())
        return;
    RememberFileFolder(fileName);

    cBusySection busy;
    QFile page(PreviewUrl);
    if (!page.open(QIODevice::ReadOnly)) {
        Interaction().ShowMessage(QStringLiteral("The web page ") +
                                      QDir::toNativeSeparators(PreviewUrl) +
                                      QStringLiteral(" could not be read: ") + page.errorString(),
                                  MessageIcon::Exclamation, AppInfo::Title());
        return;
    }
    const QByteArray content = page.readAll();
    // A page of the same name is replaced, and stays whole if the new one can not be
    // written.
    const WriteOutcome outcome = WriteWholeFile(fileName, [&content](QIODevice &device) {
        return device.write(content) == content.size() ? WriteOutcome::Written
                                                       : WriteOutcome::Failed;
    });
    if (outcome == WriteOutcome::Written)
        Interaction().ShowMessage(QStringLiteral("Web page saved to ") + fileName,
                                  MessageIcon::Plain, AppInfo::Title());
}

void frmWebPreview::OpenInBrowser_Click()
{
    if (!QDesktopServices::openUrl(QUrl::fromLocalFile(PreviewUrl)))
        Interaction().ShowMessage(QStringLiteral("The web page ") +
                                      QDir::toNativeSeparators(PreviewUrl) +
                                      QStringLiteral(" could not be opened in a browser."),
                                  MessageIcon::Exclamation, AppInfo::Title());
}
