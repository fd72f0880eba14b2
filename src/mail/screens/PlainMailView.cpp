#include "mail/screens/PlainMailView.h"

#include "mail/HTMLPlainText.h"
#include "platform/BackgroundWork.h"

#include <QLabel>
#include <QPlainTextEdit>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int tallestText = 4000;

}

PlainMailView::PlainMailView(QWidget *parent)
    : QWidget(parent)
    , m_reason(new QLabel(this))
    , m_text(new QPlainTextEdit(this)) {
    m_reason->setWordWrap(true);
    m_reason->setTextFormat(Qt::PlainText);
    m_text->setReadOnly(true);
    m_text->setFrameShape(QFrame::NoFrame);
    m_text->setAccessibleName(tr("Message text"));
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_reason);
    layout->addWidget(m_text, 1);
    setAutoFillBackground(true);
    setFocusProxy(m_text);
}

void PlainMailView::setReason(const QString &reason) {
    m_reason->setText(tr("This message is shown as plain text. %1").arg(reason));
}

void PlainMailView::setTheme(const ThemeDefinition &theme) {
    auto colors = palette();
    colors.setColor(QPalette::Window, theme.bgWhite);
    colors.setColor(QPalette::Base, theme.bgWhite);
    colors.setColor(QPalette::Text, theme.text);
    colors.setColor(QPalette::WindowText, theme.textSecondary);
    setPalette(colors);
}

void PlainMailView::setHtml(const QString &html) {
    const auto conversion = ++m_conversion;
    const auto convert = [html] { return plainTextFromHTML(html); };
    runInBackground(convert, this, [this, conversion](const QString &text) {
        if (conversion == m_conversion)
            showText(text);
    });
}

void PlainMailView::showText(const QString &text) {
    m_text->setPlainText(text);
    const auto lines = m_text->document()->size().height() + 1;
    const auto textHeight = std::min(lines * m_text->fontMetrics().lineSpacing(), qreal(tallestText));
    Q_EMIT heightWanted(int(textHeight) + m_reason->heightForWidth(width()) + 3 * layout()->spacing());
}
