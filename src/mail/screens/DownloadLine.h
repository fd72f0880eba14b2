#pragma once

#include "mail/AttachmentDownloads.h"

#include <QWidget>

class QProgressBar;
class ThemeLabel;

/// The bar over the bottom of a message screen that shows how far a download has come. Places itself over `host`, and
/// hides while nothing is on its way.
class DownloadLine final : public QWidget {
    Q_OBJECT
public:
    DownloadLine(std::shared_ptr<AttachmentDownloads> downloads, QWidget *host);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void render();
    void place();

    std::shared_ptr<AttachmentDownloads> m_downloads;
    ThemeLabel *m_name;
    ThemeLabel *m_text;
    QProgressBar *m_progress;
};
