#pragma once

#include "mail/FolderRecords.h"

#include <QCoroTask>

/// The folder endpoints. Holds nothing; each operation fails as `APIClient` does.
class FolderService {
public:
    static QCoro::Task<std::vector<MailFolder>> listFolders();
    /// The folders as the server last saw them; answers at once.
    static QCoro::Task<std::vector<MailFolder>> cachedFolders();
    static QCoro::Task<> createFolder(QString name);
    static QCoro::Task<> renameFolder(QString oldName, QString newName);
    static QCoro::Task<> deleteFolder(QString name);
    static QCoro::Task<> shareFolder(QString folderPath, QString sharedWithUsername, QString permission);
    static QCoro::Task<> unshareFolder(QString shareID);
};
