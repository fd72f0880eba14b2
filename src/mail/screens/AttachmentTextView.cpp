#include "mail/screens/AttachmentTextView.h"

#include "mail/AttachmentText.h"
#include "mail/screens/PlainTextView.h"
#include "platform/BackgroundWork.h"
#include "ui/screens/ThemeLabel.h"

#include <QFile>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

/// Nobody reads more in a preview.
constexpr qsizetype mostCharacters = 4'000'000;

std::optional<QString> readText(const QString &path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    return attachmentText(file.readAll());
}

} // namespace

AttachmentTextView::AttachmentTextView(const QString &path, QWidget *parent)
    : QScrollArea(parent)
    , m_text(new PlainTextView) {
    setWidgetResizable(true);
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusProxy(m_text);
    auto *column = new QWidget;
    auto *layout = new QVBoxLayout(column);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_text, 0, Qt::AlignTop);
    setWidget(column);
    runInBackground([path] { return readText(path); }).then(this, [this](const std::optional<QString> &text) {
        if (!text)
            return Q_EMIT failed();
        show(*text);
        Q_EMIT loaded();
    });
}

void AttachmentTextView::show(const QString &text) {
    m_text->setText(text.left(mostCharacters));
    if (text.size() > mostCharacters)
        widget()->layout()->addWidget(new ThemeLabel(tr("The preview ends here. Save the file to read on."),
                                                     TextStyle::footnote, TextRole::secondary));
}
