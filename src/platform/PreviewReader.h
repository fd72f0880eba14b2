#pragma once

#include "platform/Clock.h"

#include <QImage>
#include <QProcess>
#include <QSizeF>

/// Reads one document of somebody else's making in a process of its own, which may crash or hang without harm: the
/// program sees nothing but sizes and pixels. One question at a time.
class PreviewReader final : public QObject {
    Q_OBJECT
public:
    /// Starts reading. `mime` is an image type or that of PDF.
    PreviewReader(const QString &path, const QString &mime, QObject *parent = nullptr);
    ~PreviewReader() override;

    /// Whether an answer is awaited.
    bool isBusy() const { return m_silence != nullptr; }
    /// Asks for a page, counted from 0, in this many pixels. Not while it is busy.
    void render(int page, const QSize &size);

Q_SIGNALS:
    /// At least one page; sizes in pixels for images and in points for PDF.
    void opened(const QList<QSizeF> &pageSizes);
    /// The image is null when this page cannot be shown.
    void rendered(int page, const QImage &image);
    /// The document cannot be shown, or not any longer. Nothing comes after it.
    void failed();

private:
    void awaitAnswer();
    void read();
    void take(const QByteArray &message);
    void takePages(QDataStream &stream);
    void takePage(QDataStream &stream, const QByteArray &message);
    void fail();

    QProcess m_process;
    QByteArray m_input;
    bool m_isOpen = false, m_hasFailed = false;
    int m_page = 0;
    QSize m_size;
    ScheduledWorkPtr m_silence;
};
