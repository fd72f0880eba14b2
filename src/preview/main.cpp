#include "platform/PreviewProtocol.h"
#include "preview/Confinement.h"
#include "preview/Document.h"

#include <QBuffer>
#include <QGuiApplication>
#include <QtEndian>
#include <cstdio>

namespace {

/// Ends the process when the program has closed the pipe: nobody waits any more.
bool readAll(char *bytes, std::size_t count) {
    return std::fread(bytes, 1, count, stdin) == count;
}

bool readQuestion(PageQuestion *question) {
    QByteArray bytes(PreviewProtocol::headSize + PageQuestion::size, Qt::Uninitialized);
    if (!readAll(bytes.data(), std::size_t(bytes.size())))
        return false;
    QDataStream stream(bytes);
    quint32 length = 0;
    stream >> length >> question->page >> question->width >> question->height;
    return length == PageQuestion::size;
}

/// `head` is the message without its pixels.
void say(const QByteArray &head, const QImage &pixels = {}) {
    uchar length[PreviewProtocol::headSize];
    qToBigEndian(quint32(head.size() + pixels.sizeInBytes()), length);
    std::fwrite(length, 1, sizeof length, stdout);
    std::fwrite(head.constData(), 1, std::size_t(head.size()), stdout);
    if (!pixels.isNull())
        std::fwrite(pixels.constBits(), 1, std::size_t(pixels.sizeInBytes()), stdout);
    std::fflush(stdout);
}

template <typename... Values> QByteArray message(PreviewProtocol::Answer answer, const Values &...values) {
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setVersion(PreviewProtocol::streamVersion);
    stream << quint8(answer);
    ((stream << values), ...);
    return bytes;
}

bool isAnswerable(const PageQuestion &question, qsizetype pages) {
    return question.page < pages && question.width > 0 && question.height > 0 &&
           qint64(question.width) * question.height <= PreviewProtocol::maximumPixels;
}

void answer(Document &document, qsizetype pages) {
    PageQuestion question;
    while (readQuestion(&question)) {
        grantTime();
        QImage image;
        if (isAnswerable(question, pages))
            image = document.render(int(question.page), QSize(int(question.width), int(question.height)));
        if (image.isNull())
            say(message(PreviewProtocol::refused));
        else
            say(message(PreviewProtocol::page, question.width, question.height), image);
    }
}

} // namespace

/// Reads the document that it is given, with its content type, and draws pages for the program at the other end of
/// standard input and output.
int main(int argc, char **argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    if (argc != 3)
        return 2;
    confine();
    grantTime();
    const auto document = openDocument(QString::fromLocal8Bit(argv[1]), QString::fromLocal8Bit(argv[2]));
    const auto sizes = document->pageSizes();
    if (sizes.isEmpty()) {
        say(message(PreviewProtocol::refused));
        return 1;
    }
    say(message(PreviewProtocol::opened, sizes));
    answer(*document, sizes.size());
    return 0;
}
