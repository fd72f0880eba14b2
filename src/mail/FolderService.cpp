#include "mail/FolderService.h"

#include "net/APIClient.h"

using namespace Qt::StringLiterals;

QCoro::Task<std::vector<MailFolder>> FolderService::listFolders() {
    auto response = co_await APIClient::shared().get<FolderListResponse>(u"api/folders"_s);
    co_return std::move(response.folders);
}

QCoro::Task<std::vector<MailFolder>> FolderService::cachedFolders() {
    auto response = co_await APIClient::shared().get<FolderListResponse>(u"api/folders/cached"_s);
    co_return std::move(response.folders);
}

QCoro::Task<> FolderService::createFolder(QString name) {
    return APIClient::shared().postJSON(u"api/folders/create"_s, {{u"name"_s, name}});
}

QCoro::Task<> FolderService::renameFolder(QString oldName, QString newName) {
    return APIClient::shared().postJSON(u"api/folders/rename"_s, {{u"old_name"_s, oldName}, {u"new_name"_s, newName}});
}

QCoro::Task<> FolderService::deleteFolder(QString name) {
    return APIClient::shared().postJSON(u"api/folders/delete"_s, {{u"name"_s, name}});
}

QCoro::Task<> FolderService::shareFolder(QString folderPath, QString sharedWithUsername, QString permission) {
    return APIClient::shared().postJSON(u"api/folders/share"_s, {{u"folder_path"_s, folderPath},
                                                                 {u"shared_with_username"_s, sharedWithUsername},
                                                                 {u"permission"_s, permission}});
}

QCoro::Task<> FolderService::unshareFolder(QString shareID) {
    return APIClient::shared().postJSON(u"api/folders/unshare"_s, {{u"share_id"_s, shareID}});
}
