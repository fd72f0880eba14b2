#include "BlockWatch.h"
#include "Chapters.h"
#include "Mailbox.h"
#include "MainThread.h"
#include "PeakMemory.h"
#include "Report.h"
#include "ScreenProbe.h"
#include "compose/screens/ComposeEditorView.h"
#include "driver/MessageWriter.h"

#include <QElapsedTimer>
#include <QTemporaryDir>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

constexpr int runs = 10;
constexpr int keys = 30;
constexpr int restTime = 500; // milliseconds
constexpr int files = 5;
constexpr qint64 fileSize = 5 * 1024 * 1024; // bytes

class WritingBench {
public:
    explicit WritingBench(AppDriver &driver)
        : m_driver(driver)
        , m_writer(driver) {}

    void measureNewMessages() {
        Series field, text;
        for (int run = 0; run < runs; ++run) {
            activate();
            QElapsedTimer timer;
            timer.start();
            m_driver.press(Qt::Key_N, Qt::ControlModifier);
            MainThread::runUntil([this] { return m_writer.view() != nullptr; });
            field.add(double(timer.nsecsElapsed()) / 1e6);
            waitForEditor();
            text.add(double(timer.nsecsElapsed()) / 1e6);
            close();
        }
        Report::add(u"New message, key press to window"_s, field, u"ms"_s, {100});
        Report::add(u"New message, key press to a text that takes keys"_s, text, u"ms"_s, {100});
    }

    /// While reports of a long text cross the bridge.
    void measureKeys() {
        openLongReply();
        m_writer.view()->editor()->focusEditor();
        MainThread::run(restTime);
        Series glyph;
        for (int key = 0; key < keys; ++key) {
            glyph.add(typeBlock());
            m_driver.press(Qt::Key_Backspace);
            MainThread::runUntil([this] { return !showsBlock(); });
        }
        Report::add(u"Key press to glyph, above all of it"_s, glyph, u"ms"_s, {50});
        close();
    }

    void measureReplies() {
        Series reply, glyph, whole, block;
        for (int run = 0; run < runs; ++run) {
            BlockWatch::restart();
            QElapsedTimer timer;
            timer.start();
            openLongReply();
            reply.add(double(timer.nsecsElapsed()) / 1e6);
            glyph.add(typeBlock());
            waitForReport();
            whole.add(double(timer.nsecsElapsed()) / 1e6);
            close();
            block.add(BlockWatch::longest());
        }
        Report::add(u"Reply to 1 MB of HTML, request to quotation on the display"_s, reply, u"ms"_s, {300});
        Report::add(u"Key press to glyph, while the rest of it is laid out"_s, glyph, u"ms"_s, {150});
        Report::add(u"Reply to 1 MB of HTML, request to the whole of it in the editor"_s, whole, u"ms"_s, {2000});
        Report::add(u"Longest block of the main thread in these"_s, block, u"ms"_s, {16});
    }

    void measureFiles() {
        const auto paths = makeFiles();
        Series time, memory, block;
        for (int run = 0; run < runs / 2; ++run) {
            activate();
            m_driver.press(Qt::Key_N, Qt::ControlModifier);
            MainThread::runUntil([this] { return m_writer.view() && m_writer.view()->state().isFilled(); });
            m_writer.fill(u"To"_s, u"dana@corvanite.example"_s);
            m_writer.fill(u"Subject"_s, u"Big files"_s);
            MainThread::run(restTime);
            const double before = PeakMemory::restart();
            BlockWatch::restart();
            m_writer.dropFiles(paths);
            QElapsedTimer timer;
            timer.start();
            m_writer.pressButton(u"Send"_s);
            MainThread::runUntil([this] { return !m_writer.view(); });
            time.add(double(timer.nsecsElapsed()) / 1e6);
            block.add(BlockWatch::longest());
            memory.add(PeakMemory::value() - before);
            MainThread::run(restTime);
        }
        const double size = double(files * fileSize) / 1e6;
        Report::add(u"25 MB of files, Send to closed screen, the server's time included"_s, time, u"ms"_s, {5000});
        Report::add(u"Peak of the memory above what was held before"_s, memory, u"MB"_s, {5 * size});
        Report::add(u"Longest block of the main thread in these"_s, block, u"ms"_s, {16});
    }

private:
    // There is no window manager to do it when the window before it has gone.
    void activate() {
        m_driver.window().activateWindow();
        MainThread::runUntil([this] { return m_driver.window().isActiveWindow(); });
    }

    void waitForEditor() {
        bool isThere = false;
        bool isAsked = false;
        MainThread::runUntil([&] {
            if (!std::exchange(isAsked, true))
                m_writer.view()->editor()->fetchContent([&](const std::optional<QString> &html) {
                    isThere = html.has_value();
                    isAsked = false;
                });
            return isThere;
        });
    }

    /// Ends when the beginning of the quotation is on the display.
    void openLongReply() {
        m_driver.mainScreen().detailState().perform(MacMailAction::reply);
        MainThread::runUntil([this] { return m_writer.view() && !showsQuotation(); });
        MainThread::runUntil([this] { return showsQuotation(); });
    }

    bool showsQuotation() const {
        const auto *editor = m_writer.view()->editor();
        return m_screen.shows(QColor::fromRgb(letterColor), QRect(editor->mapToGlobal(QPoint(100, 50)), QSize(2, 200)));
    }

    void waitForReport() {
        bool isReported = false;
        const QObject watch;
        QObject::connect(m_writer.view()->editor(), &ComposeEditorView::htmlContentChanged, &watch,
                         [&](const QString &html) { isReported = html.contains(u"\u2588"_s); });
        MainThread::runUntil([&] { return isReported; });
    }

    /// Milliseconds from a key press to its glyph on the display.
    double typeBlock() {
        QElapsedTimer timer;
        timer.start();
        m_driver.type(u"\u2588"_s);
        MainThread::runUntil([this] { return showsBlock(); });
        return double(timer.nsecsElapsed()) / 1e6;
    }

    bool showsBlock() const {
        const auto *editor = m_writer.view()->editor();
        // Right of where the caret, which is black too, stands at first.
        return m_screen.shows(Qt::black, QRect(editor->mapToGlobal(QPoint(19, 8)), QSize(3, 30)));
    }

    void close() {
        MainThread::run(restTime);
        m_driver.state().showCompose = false;
        MainThread::runUntil([this] { return !m_writer.view(); });
        MainThread::run(restTime);
    }

    QStringList makeFiles() const {
        QStringList paths;
        for (int number = 0; number < files; ++number) {
            QFile file(m_folder.filePath(u"file %1.bin"_s.arg(number)));
            if (!file.open(QIODevice::WriteOnly) || file.write(QByteArray(fileSize, char(number))) != fileSize)
                throw std::runtime_error("a file could not be written");
            paths.append(file.fileName());
        }
        return paths;
    }

    AppDriver &m_driver;
    MessageWriter m_writer;
    ScreenProbe m_screen;
    QTemporaryDir m_folder;
};

} // namespace

void measureWriting(AppDriver &driver) {
    WritingBench bench(driver);
    bench.measureNewMessages();
    driver.selectFolder(Mailbox::longLetterFolder());
    driver.openRow(0);
    MainThread::run(restTime);
    bench.measureReplies();
    bench.measureKeys();
    bench.measureFiles();
}
