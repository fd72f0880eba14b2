#pragma once

#include <gmime/gmime.h>

#include <filesystem>
#include <memory>
#include <string>
#include <utility>
#include <vector>

/// Owns one reference to a GMime object.
template <typename Object> class GMimeOwner {
public:
    explicit GMimeOwner(Object *object = nullptr)
        : m_object(object) {}
    GMimeOwner(GMimeOwner &&other) noexcept
        : m_object(std::exchange(other.m_object, nullptr)) {}
    GMimeOwner(const GMimeOwner &) = delete;
    GMimeOwner &operator=(GMimeOwner &&other) noexcept {
        std::swap(m_object, other.m_object);
        return *this;
    }
    GMimeOwner &operator=(const GMimeOwner &) = delete;
    ~GMimeOwner() {
        if (m_object)
            g_object_unref(m_object);
    }

    Object *get() const { return m_object; }
    explicit operator bool() const { return m_object != nullptr; }

private:
    Object *m_object;
};

using MIMEMessage = GMimeOwner<GMimeMessage>;

/// Prepares the MIME library; once per process, before any other call.
void startMIME();

/// Never absent: bytes that are no message at all give an empty one.
MIMEMessage parseMessage(const std::string &bytes);

/// What has been written to a stream in memory.
std::string bytesOfStream(GMimeStream *stream);

/// One leaf of a message: a text, a file, or a whole attached message.
struct MIMELeaf {
    GMimeObject *object;
    /// Dotted numbers as IMAP counts them, "1" or "2.1".
    std::string number;
    /// Inside a multipart/alternative, one of several forms of the same content.
    bool isAlternative;

    bool is(const char *type, const char *subtype = "*") const;
    bool isAttachment() const;
    /// Lower case, "type/subtype".
    std::string contentType() const;
    /// Decoded, without any path; empty when there is none.
    std::string fileName() const;
    /// Without angle brackets; empty when there is none.
    std::string contentID() const;
    /// The bytes behind the transfer encoding.
    std::string content() const;
    /// The content as UTF-8, for texts.
    std::string text() const;
};

/// The leaves in the order of the message. Nesting deeper than any honest message's is left out.
std::vector<MIMELeaf> leavesOf(const MIMEMessage &message);
