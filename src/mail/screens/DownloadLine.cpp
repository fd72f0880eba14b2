#include "mail/screens/DownloadLine.h"

#include "ui/screens/AppStyle.h"
#include "ui/screens/StyleShapes.h"
#include "ui/screens/ThemeLabel.h"

#include <QEvent>
#include <QGridLayout>
#include <QPainter>
#include <QProgressBar>

namespace {

constexpr int margin = 12;
constexpr int progressSteps = 1000;

} // namespace

DownloadLine::DownloadLine(std::shared_ptr<AttachmentDownloads> downloads, QWidget *host)
    : QWidget(host)
    , m_downloads(std::move(downloads))
    , m_name(new ThemeLabel({}, TextStyle::callout))
    , m_text(new ThemeLabel({}, TextStyle::caption, TextRole::secondary))
    , m_progress(new QProgressBar) {
    m_name->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    m_progress->setRange(0, progressSteps);
    m_progress->setTextVisible(false);
    m_progress->setFixedHeight(8);
    auto *layout = new QGridLayout(this);
    layout->setContentsMargins(14, 10, 14, 12);
    layout->setVerticalSpacing(8);
    layout->setColumnStretch(0, 1);
    layout->addWidget(m_name, 0, 0);
    layout->addWidget(m_text, 0, 1);
    layout->addWidget(m_progress, 1, 0, 1, 2);
    host->installEventFilter(this);
    observe(m_downloads.get(), this, &DownloadLine::render);
}

void DownloadLine::render() {
    const auto &name = m_downloads->downloadingName.get();
    setVisible(name.has_value());
    if (!name)
        return;
    m_text->setText(m_downloads->progressText());
    m_progress->setValue(int(std::clamp(m_downloads->downloadProgress.get(), 0.0, 1.0) * progressSteps));
    m_progress->setAccessibleName(*name);
    place();
    m_name->setText(m_name->fontMetrics().elidedText(name->simplified(), Qt::ElideMiddle, m_name->width()));
}

void DownloadLine::place() {
    const auto *host = parentWidget();
    const int height = sizeHint().height();
    setGeometry(margin, host->height() - height - margin, host->width() - 2 * margin, height);
    layout()->activate();
    raise();
}

bool DownloadLine::eventFilter(QObject *watched, QEvent *event) {
    if (watched == parentWidget() && event->type() == QEvent::Resize && isVisible())
        render();
    return QWidget::eventFilter(watched, event);
}

void DownloadLine::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    const auto &theme = AppStyle::theme();
    const QRectF plate = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    fillRounded(&painter, plate, StyleMetrics::cardRadius, theme.bgWhite);
    strokeRounded(&painter, plate, StyleMetrics::cardRadius, theme.border);
}
