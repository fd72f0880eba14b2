#pragma once

#include "mail/AttachmentPageLayout.h"

#include <QAbstractScrollArea>
#include <QImage>
#include <map>

class PreviewReader;

/// The pages of a document below one another, or a picture. Only what can be seen is drawn, and little of it kept.
class AttachmentPagesView final : public QAbstractScrollArea {
    Q_OBJECT
public:
    /// What the document fills at first.
    enum class Fit { width, page };

    /// `reader` is to outlive the view.
    AttachmentPagesView(PreviewReader *reader, Fit fit, QWidget *parent = nullptr);

    double zoom() const { return m_zoom; }
    /// 1 is the size at first.
    void setZoom(double zoom);

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void scrollContentsBy(int dx, int dy) override;

private:
    void setPages(const QList<QSizeF> &sizes);
    void addZoomKeys();
    void arrange();
    QRect visibleArea() const;
    QSize pixelsOf(int page) const;
    void renderNext();
    void take(int page, const QImage &image);
    void dropHidden();

    PreviewReader *m_reader;
    const Fit m_fit;
    double m_zoom = 1;
    AttachmentPageLayout m_layout;
    /// What has been drawn, and for which size; null where drawing failed.
    struct Drawn {
        QSize wanted;
        QImage image;
    };
    std::map<int, Drawn> m_drawn;
    int m_asked = -1;
    QSize m_askedSize;
};
