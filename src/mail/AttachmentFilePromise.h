#pragma once

#include "mail/MacAttachmentRow.h"

#include <memory>
#include <optional>

/// A file that is fetched only when somebody wants it written. Keeps the row that its drag was started for.
class AttachmentFilePromise : public std::enable_shared_from_this<AttachmentFilePromise> {
public:
    explicit AttachmentFilePromise(std::optional<MacAttachmentRow> row)
        : m_row(std::move(row)) {}

    QString fileName() const;
    /// Fetches the file and writes it to this path, where nothing may be yet. A failure is told to the person and then
    /// thrown as `Error`.
    QCoro::Task<> write(QString path);

private:
    std::optional<MacAttachmentRow> m_row;
};
