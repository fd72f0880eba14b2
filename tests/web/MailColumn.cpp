#include "web/MailColumn.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QKeyEvent>
#include <QPixmap>
#include <QScreen>
#include <QVBoxLayout>
#include <QWebEngineView>
#include <QWheelEvent>
#include <gtest/gtest.h>

#include <optional>
#include <signal.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

bool spinUntil(const std::function<bool()> &condition) {
    const QDeadlineTimer deadline(30000);
    while (!condition() && !deadline.hasExpired())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents | QEventLoop::AllEvents, 10);
    return condition();
}

MailColumn::MailColumn()
    : header(new QLabel)
    , body(new EmailHTMLView)
    , footer(new QLabel) {
    header->setFixedHeight(100);
    footer->setFixedHeight(100);
    footer->setStyleSheet(u"background: #00ffff"_s);
    auto *content = new QWidget;
    auto *layout = new QVBoxLayout(content);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    for (auto *part : {static_cast<QWidget *>(header), static_cast<QWidget *>(body), static_cast<QWidget *>(footer)})
        layout->addWidget(part);
    layout->addStretch(1);
    setWidget(content);
    setWidgetResizable(true);
    setFrameShape(NoFrame);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    connect(body, &EmailHTMLView::linkActivated, this, [this](const QUrl &url) { links.append(url); });
    connect(body, &EmailHTMLView::painted, this, [this] { ++paints; });
    body->setTheme(theme(false));
    setGeometry(0, 0, 800, 600);
    QScrollArea::show();
}

ThemeDefinition MailColumn::theme(bool isDark) {
    ThemeDefinition theme;
    theme.id = isDark ? u"dark"_s : u"light"_s;
    theme.isDark = isDark;
    theme.bgWhite = isDark ? QColor(0x1e, 0x29, 0x3b) : QColor(Qt::white);
    theme.text = isDark ? Qt::white : Qt::black;
    theme.primary = QColor(0x25, 0x63, 0xeb);
    return theme;
}

void MailColumn::show(const QString &html, bool showImages) {
    const auto before = paints;
    body->setShowImages(showImages);
    body->setHtml(html);
    ASSERT_TRUE(spinUntil([&] { return paints > before; }));
}

QColor MailColumn::seen(QPoint point) const {
    const auto place = mapToGlobal(point);
    return screen()->grabWindow(0, place.x(), place.y(), 1, 1).toImage().pixelColor(0, 0);
}

bool MailColumn::waitForColor(QPoint point, const QColor &color) const {
    return spinUntil([&] { return seen(point) == color; });
}

QWidget *MailColumn::inputWidget() const {
    QWidget *deepest = body;
    const auto place = viewport()->mapToGlobal(viewport()->rect().center());
    while (auto *child = deepest->childAt(deepest->mapFromGlobal(place)))
        deepest = child;
    return deepest;
}

void MailColumn::turnWheel(int degrees, Qt::KeyboardModifiers modifiers) {
    auto *widget = inputWidget();
    const QPoint place(400, 300);
    QWheelEvent event(place, widget->mapToGlobal(place), {}, {0, degrees * 8}, Qt::NoButton, modifiers,
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(widget, &event);
}

void MailColumn::press(int key, Qt::KeyboardModifiers modifiers) {
    QKeyEvent event(QEvent::KeyPress, key, modifiers);
    QCoreApplication::sendEvent(inputWidget(), &event);
}

void MailColumn::sendMouse(QEvent::Type type, QPoint pointInBody, Qt::MouseButton button, Qt::MouseButtons held) {
    auto *widget = inputWidget();
    const auto global = body->mapToGlobal(pointInBody);
    QMouseEvent event(type, widget->mapFromGlobal(global), global, button, held, Qt::NoModifier);
    QCoreApplication::sendEvent(widget, &event);
}

void MailColumn::click(QPoint pointInBody) {
    sendMouse(QEvent::MouseButtonPress, pointInBody, Qt::LeftButton, Qt::LeftButton);
    sendMouse(QEvent::MouseButtonRelease, pointInBody, Qt::LeftButton, Qt::NoButton);
}

void MailColumn::hover(QPoint pointInBody) {
    sendMouse(QEvent::MouseMove, pointInBody, Qt::NoButton, Qt::NoButton);
}

void MailColumn::setBodyWidth(int width) {
    resize(size().width() + width - body->width(), size().height());
    ASSERT_TRUE(spinUntil([&] { return body->width() == width; }));
}

QString MailColumn::pageText() const {
    std::optional<QString> text;
    body->findChild<QWebEngineView *>()->page()->toPlainText([&](const QString &words) { text = words; });
    EXPECT_TRUE(spinUntil([&] { return text.has_value(); }));
    return text.value_or(QString());
}

namespace {

QByteArray contentsOf(const QString &path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

pid_t parentOf(pid_t process) {
    const auto stat = contentsOf(u"/proc/%1/stat"_s.arg(process));
    return pid_t(stat.mid(stat.lastIndexOf(')') + 2).split(' ').value(1).toInt());
}

bool isOurs(pid_t process) {
    while (process > 1 && process != getpid())
        process = parentOf(process);
    return process == getpid();
}

// A renderer is forked from a zygote, which is forked from this process.
bool isRenderer(pid_t process) {
    return contentsOf(u"/proc/%1/cmdline"_s.arg(process)).contains("QtWebEngineProcess") && isOurs(process) &&
           parentOf(process) != getpid();
}

} // namespace

void killRenderer() {
    int killed = 0;
    for (const auto &name : QDir(u"/proc"_s).entryList(QDir::Dirs))
        if (const auto process = pid_t(name.toInt()); process > 0 && isRenderer(process))
            killed += kill(process, SIGKILL) == 0;
    ASSERT_GT(killed, 0);
}
