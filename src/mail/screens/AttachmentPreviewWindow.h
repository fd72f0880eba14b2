#pragma once

#include <QUrl>
#include <QWidget>

class AttachmentPagesView;
class EmptyStateView;
class PreviewReader;
class QStackedWidget;

/// The size of a preview window on a screen with this much room; absent when there is no screen.
QSize attachmentPreviewSize(const std::optional<QSize> &available);

/// Shows one attachment in a window of its own, with a way to save it and to hand it to another program.
class AttachmentPreviewWindow final : public QWidget {
    Q_OBJECT
public:
    AttachmentPreviewWindow(const QUrl &file, const QString &mime);

public Q_SLOTS:
    void save();
    void share();

Q_SIGNALS:
    void closed();

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    QWidget *makeToolbar();
    void addKeys();
    void showText();
    void showPages(const QString &mime);
    void showFailure();

    const QUrl m_file;
    QStackedWidget *m_content;
    EmptyStateView *m_failure;
};
