#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QString>
#include <vector>

/// One named event with its data, a JSON text that has not been parsed yet.
struct SSEEvent {
    QString name;
    QByteArray data;

    bool operator==(const SSEEvent &) const = default;
};

/// Cuts the bytes of an event stream into events. Takes time linear in the bytes, however they are cut into chunks.
///
/// A chunk that ends within a UTF-8 character is held back until the character is whole; bytes that are no UTF-8 stop
/// the delivery for good. Line ends are LF, CR LF or CR, also where CR and LF come in different chunks.
class SSEParser {
public:
    /// The events that these bytes complete, in the order of the stream.
    std::vector<SSEEvent> append(const QByteArray &bytes);

private:
    /// Follows the bytes through the forms that UTF-8 allows.
    class UTF8Validator {
    public:
        void append(const QByteArray &bytes);
        bool isBetweenCharacters() const { return m_state == 0; }

    private:
        int m_state = 0;
    };

    void appendText(const QByteArray &text);
    void parseBlock(QByteArrayView block, std::vector<SSEEvent> &events) const;

    UTF8Validator m_validator;
    QByteArray m_pendingBytes;
    QByteArray m_buffer;
    /// No block ends before this place of the buffer.
    qsizetype m_scanned = 0;
    bool m_endedInCarriageReturn = false;
};
