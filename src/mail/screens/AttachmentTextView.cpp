#include "mail/screens/AttachmentTextView.h"

#include "mail/AttachmentText.h"
#include "mail/screens/PlainTextView.h"
#include "platform/FileWriting.h"
#include "platform/Tasks.h"
#include "ui/screens/ThemeLabel.h"

#include <QFile>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

/// Nobody reads more in a preview.
constexpr qsizetype mostCharacters = 4'000'000;

QString readText(const QString &path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw Error(file.errorString());
    return attachmentText(file.readAll());
}

} // namespace

AttachmentTextView::AttachmentTextView(QWidget *parent)
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
}

void AttachmentTextView::load(const QString &path) {
    launch(read(this, path));
}

QCoro::Task<> AttachmentTextView::read(QPointer<AttachmentTextView> view, QString path) {
    std::optional<QString> text;
    try {
        const std::function<QString()> work = [path] { return readText(path); };
        auto content = co_await fileWork(work);
        text = std::move(content);
    } catch (const std::exception &) {
        // There is nothing to show then.
    }
    if (!view)
        co_return;
    if (!text) {
        Q_EMIT view->failed();
        co_return;
    }
    view->showText(*text);
    Q_EMIT view->loaded();
}

void AttachmentTextView::showText(const QString &text) {
    m_text->setText(text.left(mostCharacters));
    if (text.size() > mostCharacters)
        widget()->layout()->addWidget(new ThemeLabel(tr("The preview ends here. Save the file to read on."),
                                                     TextStyle::footnote, TextRole::secondary));
}
