#include "compose/screens/EditorImagePanel.h"

#include "compose/EditorImageFile.h"
#include "platform/BackgroundWork.h"

#include <QDir>
#include <QFileDialog>
#include <QMimeDatabase>

using namespace Qt::StringLiterals;

namespace {

QStringList imagePatterns() {
    QStringList patterns;
    for (const auto &type : QMimeDatabase().allMimeTypes())
        if (type.name().startsWith(u"image/"_s))
            patterns += type.globPatterns();
    return patterns;
}

QStringList readImages(const QStringList &paths) {
    QStringList images;
    for (const auto &path : paths)
        if (const auto image = dataURLOfImageFile(path))
            images.append(*image);
    return images;
}

} // namespace

void showEditorImagePanel(QWidget *parent, const std::function<void(const QString &dataURL)> &insert) {
    auto *panel = new QFileDialog(parent, QObject::tr("Insert Image"), QDir::homePath());
    panel->setAttribute(Qt::WA_DeleteOnClose);
    panel->setFileMode(QFileDialog::ExistingFiles);
    panel->setOption(QFileDialog::HideNameFilterDetails);
    panel->setNameFilter(QObject::tr("Images (%1)").arg(imagePatterns().join(u' ')));
    QObject::connect(panel, &QFileDialog::filesSelected, parent, [parent, insert](const QStringList &paths) {
        runInBackground([paths] { return readImages(paths); }, parent,
                        [insert](const QStringList &images) {
                            for (const auto &image : images)
                                insert(image);
                        });
    });
    panel->open();
}
