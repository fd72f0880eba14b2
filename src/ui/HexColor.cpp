#include "ui/HexColor.h"

#include <algorithm>

namespace {

QStringView trimmedToAlphanumerics(QStringView text) {
    const auto counts = [](QChar c) { return c.isLetterOrNumber(); };
    const auto first = std::find_if(text.begin(), text.end(), counts);
    const auto last = std::find_if(text.rbegin(), std::reverse_iterator(first), counts).base();
    return QStringView(first, last);
}

} // namespace

QColor colorFromHex(QStringView text) {
    const QStringView digits = trimmedToAlphanumerics(text);
    const quint64 n = digits.toULongLong(nullptr, 16);
    const auto byte = [n](int shift) { return int(n >> shift & 0xff); };
    const auto doubledDigit = [n](int shift) { return int(n >> shift & 0xf) * 17; };
    switch (digits.size()) {
    case 8:
        return QColor(byte(16), byte(8), byte(0), byte(24));
    case 6:
        return QColor(byte(16), byte(8), byte(0));
    case 3:
        return QColor(doubledDigit(8), doubledDigit(4), doubledDigit(0));
    default:
        return QColor(Qt::black);
    }
}
