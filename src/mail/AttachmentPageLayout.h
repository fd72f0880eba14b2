#pragma once

#include <QList>
#include <QRect>
#include <QSizeF>
#include <vector>

/// Where the pages of a document lie when they stand below one another, centred. Distances are pixels.
class AttachmentPageLayout {
public:
    void setPages(const QList<QSizeF> &sizes) { m_sizes = sizes; }
    int count() const { return int(m_sizes.size()); }

    /// The scale at which the widest page is as wide as this, or the first page fits into it; never more than 1 for
    /// `fitPage`, which is for pictures.
    double scaleForWidth(const QSize &room) const;
    double scaleForPage(const QSize &room) const;

    void arrange(double scale, const QSize &room);
    /// The pages and the margins around them; at least as large as the room.
    QSize size() const { return m_size; }
    QRect page(int number) const;
    /// The first and the last page that can be seen in this area; the last is before the first when there is none.
    std::pair<int, int> pagesIn(const QRect &area) const;

private:
    QSizeF widest() const;

    QList<QSizeF> m_sizes;
    double m_scale = 1;
    QSize m_size;
    int m_top = 0;
    /// One more than there are pages.
    std::vector<int> m_tops;
};
