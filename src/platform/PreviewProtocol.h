#pragma once

#include <QDataStream>
#include <QSizeF>

/// What the program and its reader of documents say to each other through pipes. Every message is a length in four
/// bytes, big-endian, and that many bytes, which a `QDataStream` wrote. The reader speaks first: whether it can read
/// the document. Each question after that gets one answer.
struct PreviewProtocol {
    enum Answer : quint8 {
        /// Nothing follows: the document, or the page that was asked for, cannot be shown.
        refused,
        /// The number of pages, and as many sizes.
        opened,
        /// Width and height, then the pixels as `QImage::Format_RGB32` without padding.
        page
    };

    static constexpr qsizetype headSize = 4;
    /// The most that one page may have.
    static constexpr qint64 maximumPixels = qint64(16) << 20;
    static constexpr int maximumPages = 10000;
    static constexpr qsizetype maximumMessage = 4 * maximumPixels + 1024;

    static constexpr auto streamVersion = QDataStream::Qt_6_4;
};

/// Asks for one page, counted from 0, in this many pixels.
struct PageQuestion {
    quint32 page = 0, width = 0, height = 0;

    static constexpr qsizetype size = 12;
};
