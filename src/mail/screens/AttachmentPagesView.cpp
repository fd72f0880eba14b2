#include "mail/screens/AttachmentPagesView.h"

#include "platform/PreviewProtocol.h"
#include "platform/PreviewReader.h"
#include "ui/screens/AppStyle.h"

#include <QAction>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr double zoomStep = 1.25;
constexpr double leastZoom = 0.25, greatestZoom = 8;
constexpr int lineStep = 48;

} // namespace

AttachmentPagesView::AttachmentPagesView(PreviewReader *reader, Fit fit, QWidget *parent)
    : QAbstractScrollArea(parent)
    , m_reader(reader)
    , m_fit(fit) {
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::StrongFocus);
    setAccessibleName(tr("Preview"));
    connect(reader, &PreviewReader::opened, this, &AttachmentPagesView::setPages);
    connect(reader, &PreviewReader::rendered, this, &AttachmentPagesView::take);
    addZoomKeys();
}

void AttachmentPagesView::addZoomKeys() {
    const auto add = [this](const QList<QKeySequence> &keys, auto work) {
        auto *action = new QAction(this);
        action->setShortcuts(keys);
        action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
        connect(action, &QAction::triggered, this, work);
        addAction(action);
    };
    add({QKeySequence(Qt::CTRL | Qt::Key_Plus), QKeySequence(Qt::CTRL | Qt::Key_Equal)},
        [this] { setZoom(m_zoom * zoomStep); });
    add({QKeySequence(Qt::CTRL | Qt::Key_Minus)}, [this] { setZoom(m_zoom / zoomStep); });
    add({QKeySequence(Qt::CTRL | Qt::Key_0)}, [this] { setZoom(1); });
}

void AttachmentPagesView::setZoom(double zoom) {
    const double bounded = std::clamp(zoom, leastZoom, greatestZoom);
    if (bounded == m_zoom)
        return;
    m_zoom = bounded;
    arrange();
}

void AttachmentPagesView::setPages(const QList<QSizeF> &sizes) {
    m_layout.setPages(sizes);
    arrange();
}

void AttachmentPagesView::arrange() {
    if (m_layout.count() == 0)
        return;
    const auto room = viewport()->size();
    const auto old = m_layout.size();
    const auto center = visibleArea().center();
    const double fitting = m_fit == Fit::page ? m_layout.scaleForPage(room) : m_layout.scaleForWidth(room);
    m_layout.arrange(fitting * m_zoom, room);

    const auto size = m_layout.size();
    const auto prepare = [](QScrollBar *bar, int whole, int part) {
        bar->setRange(0, std::max(0, whole - part));
        bar->setPageStep(part);
        bar->setSingleStep(lineStep);
    };
    prepare(verticalScrollBar(), size.height(), room.height());
    prepare(horizontalScrollBar(), size.width(), room.width());
    // What was in the middle stays there; a document that was at its beginning does, too.
    if (!old.isEmpty()) {
        if (verticalScrollBar()->value() > 0)
            verticalScrollBar()->setValue(int(double(center.y()) * size.height() / old.height()) - room.height() / 2);
        horizontalScrollBar()->setValue(int(double(center.x()) * size.width() / old.width()) - room.width() / 2);
    }
    viewport()->update();
    renderNext();
}

QRect AttachmentPagesView::visibleArea() const {
    return {QPoint(horizontalScrollBar()->value(), verticalScrollBar()->value()), viewport()->size()};
}

QSize AttachmentPagesView::pixelsOf(int page) const {
    QSizeF pixels = QSizeF(m_layout.page(page).size()) * devicePixelRatioF();
    const double tooMany = pixels.width() * pixels.height() / double(PreviewProtocol::maximumPixels);
    if (tooMany > 1)
        pixels /= std::sqrt(tooMany) * 1.001;
    return pixels.toSize().expandedTo({1, 1});
}

void AttachmentPagesView::renderNext() {
    if (m_layout.count() == 0 || m_reader->isBusy())
        return;
    const auto [first, last] = m_layout.pagesIn(visibleArea());
    for (int page = first; page <= last; ++page) {
        const auto drawn = m_drawn.find(page);
        if (drawn != m_drawn.end() && drawn->second.wanted == pixelsOf(page))
            continue;
        m_asked = page;
        m_askedSize = pixelsOf(page);
        return m_reader->render(m_asked, m_askedSize);
    }
}

void AttachmentPagesView::take(int page, const QImage &image) {
    m_drawn[page] = {m_askedSize, image};
    dropHidden();
    viewport()->update();
    renderNext();
}

void AttachmentPagesView::dropHidden() {
    const auto [first, last] = m_layout.pagesIn(visibleArea());
    std::erase_if(m_drawn, [first = first, last = last](const auto &entry) {
        return entry.first < first - 1 || entry.first > last + 1;
    });
}

void AttachmentPagesView::paintEvent(QPaintEvent *) {
    QPainter painter(viewport());
    const auto &theme = AppStyle::theme();
    painter.fillRect(viewport()->rect(), theme.bg);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    const auto area = visibleArea();
    const auto [first, last] = m_layout.pagesIn(area);
    for (int page = first; page <= last; ++page) {
        const auto place = m_layout.page(page).translated(-area.topLeft());
        const auto drawn = m_drawn.find(page);
        painter.fillRect(place, Qt::white);
        if (drawn != m_drawn.end() && !drawn->second.image.isNull())
            painter.drawImage(place, drawn->second.image);
        painter.setPen(theme.border);
        painter.drawRect(place.adjusted(-1, -1, 0, 0));
    }
}

void AttachmentPagesView::resizeEvent(QResizeEvent *event) {
    QAbstractScrollArea::resizeEvent(event);
    arrange();
}

void AttachmentPagesView::scrollContentsBy(int, int) {
    viewport()->update();
    renderNext();
}

void AttachmentPagesView::keyPressEvent(QKeyEvent *event) {
    auto *bar = verticalScrollBar();
    const bool back = event->modifiers() & Qt::ShiftModifier;
    switch (event->key()) {
    case Qt::Key_Space:
        return bar->triggerAction(back ? QScrollBar::SliderPageStepSub : QScrollBar::SliderPageStepAdd);
    case Qt::Key_Home:
        return bar->triggerAction(QScrollBar::SliderToMinimum);
    case Qt::Key_End:
        return bar->triggerAction(QScrollBar::SliderToMaximum);
    default:
        QAbstractScrollArea::keyPressEvent(event);
    }
}

void AttachmentPagesView::wheelEvent(QWheelEvent *event) {
    if (!(event->modifiers() & Qt::ControlModifier))
        return QAbstractScrollArea::wheelEvent(event);
    setZoom(m_zoom * std::pow(zoomStep, event->angleDelta().y() / 120.0));
}
