#include "mail/screens/AttachmentRowView.h"

#include "mail/screens/AttachmentIcon.h"
#include "ui/FileSizeText.h"
#include "ui/screens/SymbolView.h"
#include "ui/screens/ThemeLabel.h"

#include <QEvent>
#include <QHBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int iconSize = 24;
constexpr int openSymbolSize = 14;

} // namespace

AttachmentRowView::AttachmentRowView(QWidget *parent)
    : QWidget(parent)
    , m_icon(new QLabel)
    , m_nameLabel(new ThemeLabel)
    , m_size(new ThemeLabel({}, TextStyle::caption, TextRole::secondary)) {
    m_icon->setFixedSize(iconSize, iconSize);
    // A long name is elided rather than making the whole message wide.
    m_nameLabel->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(12, 8, 12, 8);
    layout->setSpacing(10);
    layout->addWidget(m_icon);
    layout->addWidget(m_nameLabel, 1);
    layout->addWidget(m_size);
    layout->addWidget(new SymbolView(u"arrow.up.right.square"_s, openSymbolSize));
}

void AttachmentRowView::setRow(const MacAttachmentRow &row) {
    m_name = row.filename;
    m_mime = row.mime;
    m_size->setText(fileSizeText(row.size));
    showIcon();
    showName();
}

void AttachmentRowView::changeEvent(QEvent *event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        showIcon();
    if (event->type() == QEvent::FontChange || event->type() == QEvent::PaletteChange)
        showName();
}

void AttachmentRowView::resizeEvent(QResizeEvent *event) {
    QWidget::resizeEvent(event);
    layout()->activate();
    showName();
}

void AttachmentRowView::showIcon() {
    m_icon->setPixmap(attachmentIcon(m_mime).pixmap(QSize(iconSize, iconSize), devicePixelRatio()));
}

void AttachmentRowView::showName() {
    // Line breaks in a name would make the row tall.
    const auto line = m_name.simplified();
    m_nameLabel->setText(m_nameLabel->fontMetrics().elidedText(line, Qt::ElideMiddle, m_nameLabel->width()));
}
