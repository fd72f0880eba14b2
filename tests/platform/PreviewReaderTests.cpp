#include "platform/PreviewReader.h"

#include "support/CoreTest.h"

#include <QCoreApplication>
#include <QFile>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QtEndian>

using namespace Qt::StringLiterals;

namespace {

QByteArray bigEndian(quint32 number) {
    QByteArray bytes(4, Qt::Uninitialized);
    qToBigEndian(number, bytes.data());
    return bytes;
}

quint32 checksum(const QByteArray &bytes) {
    quint32 sum = ~0U;
    for (const char byte : bytes) {
        sum ^= uchar(byte);
        for (int bit = 0; bit < 8; ++bit)
            sum = (sum >> 1) ^ (sum & 1 ? 0xedb88320U : 0);
    }
    return ~sum;
}

QByteArray pngChunk(const QByteArray &type, const QByteArray &data) {
    return bigEndian(quint32(data.size())) + type + data + bigEndian(checksum(type + data));
}

/// A grey picture that claims this size and has these rows.
QByteArray png(quint32 width, quint32 height, const QByteArray &rows) {
    const auto header = bigEndian(width) + bigEndian(height) + QByteArray::fromHex("0800000000");
    // Qt puts the length before what zlib makes.
    return "\x89PNG\r\n\x1a\n" + pngChunk("IHDR", header) + pngChunk("IDAT", qCompress(rows).mid(4)) +
           pngChunk("IEND", {});
}

/// Two rows of three pixels.
QByteArray smallPNG() {
    return png(3, 2, QByteArray::fromHex("0000000000ffffff"));
}

QByteArray entityBomb() {
    QByteArray bomb = "<!DOCTYPE svg [<!ENTITY a0 \"aaaaaaaaaa\">";
    for (int level = 1; level <= 9; ++level) {
        const auto inner = "&a" + QByteArray::number(level - 1) + ';';
        bomb += "<!ENTITY a" + QByteArray::number(level) + " \"" + inner.repeated(10) + "\">";
    }
    return bomb + R"(]><svg xmlns="http://www.w3.org/2000/svg" width="9" height="9"><text>&a9;</text></svg>)";
}

QByteArray pdf(const QByteArray &pages, const QByteArray &mediaBox) {
    return "%PDF-1.4\n1 0 obj<</Type/Catalog/Pages 2 0 R>>endobj\n2 0 obj<</Type/Pages/Count " + pages +
           "/Kids[3 0 R]>>endobj\n3 0 obj<</Type/Page/Parent 2 0 R/MediaBox[" + mediaBox +
           "]>>endobj\ntrailer<</Root 1 0 R/Size 4>>\n";
}

struct HostileRow {
    const char *name;
    QByteArray content;
    QString mime;
};

class HostileFiles : public CoreTest, public testing::WithParamInterface<HostileRow> {};

const HostileRow hostile[] = {
    {"EmptyImage", "", u"image/png"_s},
    {"EmptyPDF", "", u"application/pdf"_s},
    {"EmptySVG", "", u"image/svg+xml"_s},
    {"TruncatedPNG", smallPNG().left(50), u"image/png"_s},
    {"PNGThatClaimsGigapixels", png(60000, 60000, QByteArray(1000, 0)), u"image/png"_s},
    {"GIFBomb", QByteArray::fromHex("474946383961ffffffff800000000000ffffff2c00000000ffffffff0002024401003b"),
     u"image/gif"_s},
    {"EntityBomb", entityBomb(), u"image/svg+xml"_s},
    {"DeepSVG",
     R"(<svg xmlns="http://www.w3.org/2000/svg" width="9" height="9">)" + QByteArray("<g>").repeated(100000) +
         QByteArray("</g>").repeated(100000) + "</svg>",
     u"image/svg+xml"_s},
    {"EndlessSVG", R"(<svg xmlns="http://www.w3.org/2000/svg" width="1e9" height="9"/>)", u"image/svg+xml"_s},
    {"BrokenPDF", "%PDF-1.4\n1 0 obj\n<< /Type /Catalog", u"application/pdf"_s},
    {"PDFOfAMillionPages", pdf("1000000", "0 0 200 300"), u"application/pdf"_s},
    {"PictureThatIsText", "hello", u"image/jpeg"_s},
};

class Reader : public CoreTest {
protected:
    QString write(const QByteArray &content) {
        QFile file(temporaryPath(u"document"_s));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
        return file.fileName();
    }
    static QList<QSizeF> sizesOf(PreviewReader &reader) {
        QSignalSpy opened(&reader, &PreviewReader::opened);
        EXPECT_TRUE(spinUntil([&] { return !opened.isEmpty(); }));
        return opened.isEmpty() ? QList<QSizeF>() : opened.first().first().value<QList<QSizeF>>();
    }
    static QImage draw(PreviewReader &reader, const QSize &size, int page = 0) {
        QSignalSpy rendered(&reader, &PreviewReader::rendered);
        reader.render(page, size);
        EXPECT_TRUE(spinUntil([&] { return !rendered.isEmpty(); }));
        return rendered.isEmpty() ? QImage() : rendered.first().last().value<QImage>();
    }
};

} // namespace

INSTANTIATE_TEST_SUITE_P(Files, HostileFiles, testing::ValuesIn(hostile), rowName);
TEST_P(HostileFiles, AreRefusedWithoutHarm) {
    QFile file(temporaryPath(u"document"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(GetParam().content);
    file.close();
    PreviewReader reader(file.fileName(), GetParam().mime);
    QSignalSpy failed(&reader, &PreviewReader::failed), opened(&reader, &PreviewReader::opened);
    ASSERT_TRUE(spinUntil([&] { return !failed.isEmpty(); }));
    EXPECT_TRUE(opened.isEmpty());
    deliverQueuedEvents();
    EXPECT_EQ(failed.size(), 1);
}

TEST_F(Reader, DrawsAPictureInTheSizeAskedFor) {
    PreviewReader reader(write(smallPNG()), u"image/png"_s);
    EXPECT_EQ(sizesOf(reader), QList{QSizeF(3, 2)});
    const auto natural = draw(reader, {3, 2});
    EXPECT_EQ(natural.pixelColor(0, 0), QColor(Qt::black));
    EXPECT_EQ(natural.pixelColor(2, 1), QColor(Qt::white));
    EXPECT_EQ(draw(reader, {30, 20}).size(), QSize(30, 20));
}

TEST_F(Reader, DrawsPagesOnWhiteAndRefusesThoseThatAreNotThere) {
    PreviewReader reader(write(pdf("1", "0 0 200 300")), u"application/pdf"_s);
    EXPECT_EQ(sizesOf(reader), QList{QSizeF(200, 300)});
    EXPECT_EQ(draw(reader, {20, 30}).pixelColor(10, 10), QColor(Qt::white));
    EXPECT_TRUE(draw(reader, {20, 30}, 7).isNull());
    EXPECT_TRUE(draw(reader, {100000, 100000}).isNull());
    EXPECT_FALSE(draw(reader, {20, 30}).isNull()) << "did not go on after a refusal";
}

TEST_F(Reader, DoesNotLoadWhatADrawingRefersTo) {
    const auto picture = temporaryPath(u"black.png"_s);
    QFile file(picture);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(png(1, 1, QByteArray(2, 0)));
    file.close();
    const auto drawing = R"(<svg xmlns="http://www.w3.org/2000/svg" xmlns:xlink="http://www.w3.org/1999/xlink" )"
                         R"(width="20" height="10"><rect width="10" height="10" fill="red"/><image xlink:href=")" +
                         picture.toUtf8() + R"(" width="20" height="10"/></svg>)";
    PreviewReader reader(write(drawing), u"image/svg+xml"_s);
    EXPECT_EQ(sizesOf(reader), QList{QSizeF(20, 10)});
    const auto image = draw(reader, {20, 10});
    EXPECT_EQ(image.pixelColor(5, 5), QColor(Qt::red));
    EXPECT_EQ(image.pixelColor(15, 5), QColor(Qt::white));
}

TEST_F(Reader, IsGivenUpWhenItHangs) {
    ManualClock clock;
    PreviewReader reader(write(smallPNG()), u"image/png"_s);
    QSignalSpy failed(&reader, &PreviewReader::failed);
    clock.advance(std::chrono::seconds(19));
    EXPECT_TRUE(failed.isEmpty());
    clock.advance(std::chrono::seconds(1));
    EXPECT_EQ(failed.size(), 1);
}

TEST_F(Reader, GivesUpNetworkAndWriting) {
    QProcess process;
    process.start(QCoreApplication::applicationDirPath() + u"/corvanite-preview"_s,
                  {write(smallPNG()), u"image/png"_s});
    ASSERT_TRUE(spinUntil([&] { return process.bytesAvailable() > 0; }));
    QFile status(u"/proc/%1/status"_s.arg(process.processId()));
    QFile limits(u"/proc/%1/limits"_s.arg(process.processId()));
    ASSERT_TRUE(status.open(QIODevice::ReadOnly) && limits.open(QIODevice::ReadOnly));
    EXPECT_TRUE(status.readAll().contains("\nSeccomp:\t2\n"));
    EXPECT_TRUE(QString::fromUtf8(limits.readAll()).contains(QRegularExpression(u"Max file size +0 "_s)));
    process.closeWriteChannel();
    EXPECT_TRUE(spinUntil([&] { return process.state() == QProcess::NotRunning; })) << "outlived the program";
    EXPECT_EQ(process.exitCode(), 0);
}
