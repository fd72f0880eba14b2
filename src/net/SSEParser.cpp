#include "net/SSEParser.h"

namespace {

constexpr int invalid = -1;

/// The states between the bytes of a character, after the table of well-formed sequences in the Unicode Standard (3-7):
/// how many continuation bytes are due, and where the next one is restricted, which range it must have.
enum State { between, oneDue, twoDue, threeDue, afterE0, afterED, afterF0, afterF4 };

struct Range {
    unsigned char first, last;
    int next;
};

constexpr Range leads[] = {{0x00, 0x7f, between}, {0xc2, 0xdf, oneDue},   {0xe0, 0xe0, afterE0},
                           {0xe1, 0xec, twoDue},  {0xed, 0xed, afterED},  {0xee, 0xef, twoDue},
                           {0xf0, 0xf0, afterF0}, {0xf1, 0xf3, threeDue}, {0xf4, 0xf4, afterF4}};
constexpr Range continuations[] = {{0, 0, invalid},      {0x80, 0xbf, between}, {0x80, 0xbf, oneDue},
                                   {0x80, 0xbf, twoDue}, {0xa0, 0xbf, oneDue},  {0x80, 0x9f, oneDue},
                                   {0x90, 0xbf, twoDue}, {0x80, 0x8f, twoDue}};

int nextState(int state, unsigned char byte) {
    if (state == between) {
        for (const auto &lead : leads)
            if (byte >= lead.first && byte <= lead.last)
                return lead.next;
        return invalid;
    }
    const auto &expected = continuations[state];
    return byte >= expected.first && byte <= expected.last ? expected.next : invalid;
}

} // namespace

void SSEParser::UTF8Validator::append(const QByteArray &bytes) {
    for (const char byte : bytes) {
        if (m_state == between && static_cast<signed char>(byte) >= 0)
            continue;
        if (m_state == invalid)
            return;
        m_state = nextState(m_state, static_cast<unsigned char>(byte));
    }
}

std::vector<SSEEvent> SSEParser::append(const QByteArray &bytes) {
    std::vector<SSEEvent> events;
    m_validator.append(bytes);
    m_pendingBytes += bytes;
    if (!m_validator.isBetweenCharacters())
        return events;
    appendText(std::exchange(m_pendingBytes, {}));

    qsizetype start = 0;
    for (auto end = m_buffer.indexOf("\n\n", m_scanned); end >= 0; end = m_buffer.indexOf("\n\n", start)) {
        parseBlock(QByteArrayView(m_buffer).sliced(start, end - start), events);
        start = end + 2;
    }
    m_buffer.remove(0, start);
    m_scanned = std::max<qsizetype>(0, m_buffer.size() - 1);
    return events;
}

void SSEParser::appendText(const QByteArray &text) {
    for (const char byte : text) {
        if (byte == '\n' && m_endedInCarriageReturn) {
            m_endedInCarriageReturn = false;
            continue;
        }
        m_endedInCarriageReturn = byte == '\r';
        m_buffer += m_endedInCarriageReturn ? '\n' : byte;
    }
}

void SSEParser::parseBlock(QByteArrayView block, std::vector<SSEEvent> &events) const {
    SSEEvent event;
    bool hasData = false;
    while (!block.isEmpty()) {
        const auto lineEnd = block.indexOf('\n');
        const auto line = lineEnd < 0 ? block : block.first(lineEnd);
        block = lineEnd < 0 ? QByteArrayView() : block.sliced(lineEnd + 1);
        const auto colon = line.indexOf(':');
        if (colon <= 0)
            continue;
        const auto field = line.first(colon);
        auto value = line.sliced(colon + 1);
        if (value.startsWith(' '))
            value = value.sliced(1);
        if (field == "event") {
            event.name = QString::fromUtf8(value);
        } else if (field == "data") {
            if (std::exchange(hasData, true))
                event.data += '\n';
            event.data += value;
        }
    }
    if (!event.name.isEmpty() && !event.data.isEmpty())
        events.push_back(std::move(event));
}
