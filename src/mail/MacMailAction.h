#pragma once

#include <QtGlobal>
#include <functional>

/// What the menu bar can ask of the message list or of an opened message.
enum class MacMailAction {
    refresh,
    search,
    archive,
    delete_,
    toggleRead,
    flag,
    junk,
    block,
    reply,
    replyAll,
    forward,
    source,
    saveAttachments
};

/// What a message list offers to the menu bar of its window.
struct MacMailboxActions {
    qint64 selectedCount = 0;
    std::function<void(MacMailAction)> perform;
};

/// What an opened message offers to the menu bar of its window.
struct MacMessageActions {
    bool hasAttachments = false;
    std::function<void(MacMailAction)> perform;
};

/// What a message being written offers to the menu bar of its window.
struct MacComposeActions {
    bool canSend = false;
    std::function<void()> send, attach;
};
