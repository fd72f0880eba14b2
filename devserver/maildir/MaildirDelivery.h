#pragma once

#include "maildir/MaildirTree.h"

/// A message on its way into a folder of a Maildir. It lies whole in tmp/ until finish() makes it appear by one rename;
/// without that it goes with its owner, and nobody ever saw it.
class MaildirDelivery {
public:
    /// Writes the file; fails with a std::system_error.
    MaildirDelivery(std::filesystem::path folder, const std::string &bytes);
    ~MaildirDelivery();
    MaildirDelivery(MaildirDelivery &&other) noexcept;
    MaildirDelivery(const MaildirDelivery &) = delete;
    MaildirDelivery &operator=(const MaildirDelivery &) = delete;

    /// Into new/ without flags, into cur/ with them.
    void finish(const std::string &flags);

private:
    std::filesystem::path temporaryFile() const { return m_folder / "tmp" / m_base; }

    std::filesystem::path m_folder;
    /// Empty when there is nothing left to do.
    std::string m_base;
};
