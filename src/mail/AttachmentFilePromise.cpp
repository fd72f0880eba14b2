#include "mail/AttachmentFilePromise.h"

#include "mail/AttachmentFileName.h"
#include "platform/FileWriting.h"

using namespace Qt::StringLiterals;

QString AttachmentFilePromise::fileName() const {
    return safeFileName(m_row ? m_row->filename : u"attachment"_s);
}

QCoro::Task<> AttachmentFilePromise::write(QString path) {
    const auto self = shared_from_this();
    if (!m_row)
        throw Error(u"The file does not exist."_s);
    QString failure;
    try {
        const auto bytes = co_await m_row->download();
        const std::function<void()> work = [path, bytes] { writeNewFile(path, bytes); };
        co_await fileWork(work);
        co_return;
    } catch (...) {
        failure = errorText(std::current_exception());
    }
    m_row->failure(failure);
    throw Error(failure);
}
