#include "mail/screens/AttachmentSavePanel.h"

#include "mail/AttachmentFileName.h"
#include "platform/FileWriting.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMimeDatabase>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace {

QString usualFolder() {
    const auto downloads = QStandardPaths::writableLocation(QStandardPaths::DownloadLocation);
    return QFileInfo(downloads).isDir() ? downloads : QDir::homePath();
}

QFileDialog *makePanel(QWidget *parent, const QString &filename) {
    auto *panel = new QFileDialog(parent);
    panel->setAttribute(Qt::WA_DeleteOnClose);
    panel->setAcceptMode(QFileDialog::AcceptSave);
    panel->setFileMode(QFileDialog::AnyFile);
    panel->setWindowTitle(u"Save Attachment"_s);
    panel->setDirectory(usualFolder());
    panel->selectFile(safeFileName(filename));
    return panel;
}

void run(const std::function<void()> &work) {
    runInBackground([work] {
        try {
            work();
        } catch (const std::exception &) {
            // The person sees in the folder that there is no such file.
        }
        return true;
    });
}

} // namespace

void showSavePanel(QWidget *parent, const QString &filename, const QByteArray &bytes) {
    auto *panel = makePanel(parent, filename);
    QObject::connect(panel, &QFileDialog::fileSelected, panel,
                     [bytes](const QString &path) { run([=] { writeFileAtomically(path, bytes); }); });
    panel->open();
}

void showSavePanelForFile(QWidget *parent, const QString &path) {
    const QFileInfo file(path);
    auto *panel = makePanel(parent, file.fileName());
    const auto type = QMimeDatabase().mimeTypeForFile(file.fileName(), QMimeDatabase::MatchExtension);
    panel->setMimeTypeFilters({type.name(), u"application/octet-stream"_s});
    panel->selectFile(file.fileName());
    QObject::connect(panel, &QFileDialog::fileSelected, panel, [path](const QString &target) {
        run([=] {
            QFile source(path);
            if (source.open(QIODevice::ReadOnly))
                writeFileAtomically(target, source.readAll());
        });
    });
    panel->open();
}
