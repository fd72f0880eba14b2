#include "platform/PreviewReader.h"

#include "platform/PreviewProtocol.h"

#include <QCoreApplication>
#include <QtEndian>

using namespace Qt::StringLiterals;

namespace {

/// A document that takes longer than this for one page is not worth waiting for.
constexpr auto longestSilence = std::chrono::seconds(20);

/// The bytes of the message belong to the image.
QImage imageOver(const QByteArray &message, qsizetype offset, const QSize &size) {
    auto *owner = new QByteArray(message);
    return QImage(
        reinterpret_cast<const uchar *>(owner->constData()) + offset, size.width(), size.height(),
        qsizetype(4) * size.width(), QImage::Format_RGB32, [](void *bytes) { delete static_cast<QByteArray *>(bytes); },
        owner);
}

} // namespace

PreviewReader::PreviewReader(const QString &path, const QString &mime, QObject *parent)
    : QObject(parent) {
    connect(&m_process, &QProcess::readyReadStandardOutput, this, &PreviewReader::read);
    connect(&m_process, &QProcess::finished, this, &PreviewReader::fail);
    connect(&m_process, &QProcess::errorOccurred, this, &PreviewReader::fail);
    m_process.setStandardErrorFile(QProcess::nullDevice());
    awaitAnswer();
    // Not at once: nobody listens yet if even that fails.
    const auto start = [this, path, mime] {
        m_process.start(QCoreApplication::applicationDirPath() + u"/corvanite-preview"_s, {path, mime});
    };
    QMetaObject::invokeMethod(this, start, Qt::QueuedConnection);
}

PreviewReader::~PreviewReader() {
    m_process.disconnect(this);
    m_process.kill();
    // A killed process is gone at once, and QProcess warns of one that outlives it.
    m_process.waitForFinished();
}

void PreviewReader::render(int page, const QSize &size) {
    m_page = page;
    m_size = size;
    QByteArray question;
    QDataStream stream(&question, QIODevice::WriteOnly);
    stream << quint32(PageQuestion::size) << quint32(page) << quint32(size.width()) << quint32(size.height());
    m_process.write(question);
    awaitAnswer();
}

void PreviewReader::awaitAnswer() {
    m_silence = Clock::shared().after(longestSilence, [this] { fail(); });
}

void PreviewReader::read() {
    m_input += m_process.readAllStandardOutput();
    if (m_input.size() < PreviewProtocol::headSize)
        return;
    const qsizetype length = qFromBigEndian<quint32>(m_input.constData());
    if (length > PreviewProtocol::maximumMessage || m_input.size() > PreviewProtocol::headSize + length)
        return fail();
    m_input.reserve(PreviewProtocol::headSize + length);
    if (m_input.size() == PreviewProtocol::headSize + length)
        take(std::exchange(m_input, {}));
}

void PreviewReader::take(const QByteArray &message) {
    if (!isBusy())
        return fail();
    m_silence.reset();
    QDataStream stream(message);
    stream.setVersion(PreviewProtocol::streamVersion);
    stream.skipRawData(PreviewProtocol::headSize);
    quint8 answer = PreviewProtocol::refused;
    stream >> answer;
    if (!m_isOpen && answer == PreviewProtocol::opened)
        takePages(stream);
    else if (m_isOpen && answer == PreviewProtocol::page)
        takePage(stream, message);
    else if (m_isOpen && answer == PreviewProtocol::refused)
        Q_EMIT rendered(m_page, {});
    else
        fail();
}

void PreviewReader::takePages(QDataStream &stream) {
    QList<QSizeF> sizes;
    stream >> sizes;
    const bool isSound = std::ranges::all_of(sizes, [](const QSizeF &size) {
        return size.width() >= 1 && size.height() >= 1 && size.width() <= 1e6 && size.height() <= 1e6;
    });
    if (stream.status() != QDataStream::Ok || sizes.isEmpty() || sizes.size() > PreviewProtocol::maximumPages ||
        !isSound)
        return fail();
    m_isOpen = true;
    Q_EMIT opened(sizes);
}

void PreviewReader::takePage(QDataStream &stream, const QByteArray &message) {
    quint32 width = 0, height = 0;
    stream >> width >> height;
    const auto offset = stream.device()->pos();
    if (QSize(int(width), int(height)) != m_size || message.size() - offset != qint64(4) * width * height)
        return fail();
    Q_EMIT rendered(m_page, imageOver(message, offset, m_size));
}

void PreviewReader::fail() {
    if (std::exchange(m_hasFailed, true))
        return;
    m_silence.reset();
    m_process.disconnect(this);
    m_process.kill();
    Q_EMIT failed();
}
