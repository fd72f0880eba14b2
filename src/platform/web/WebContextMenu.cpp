#include "platform/web/WebContextMenu.h"

#include "platform/web/EngineWebView.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMenu>
#include <QWebEngineContextMenuRequest>

using namespace Qt::StringLiterals;

namespace {

constexpr int mostSuggestions = 5;

struct Entry {
    EditAction action;
    const char *title;
    QWebEngineContextMenuRequest::EditFlag flag;
};

using enum QWebEngineContextMenuRequest::EditFlag;

constexpr Entry entries[] = {
    {EditAction::undo, QT_TRANSLATE_NOOP("EngineWebView", "Undo"), CanUndo},
    {EditAction::redo, QT_TRANSLATE_NOOP("EngineWebView", "Redo"), CanRedo},
    {EditAction::cut, QT_TRANSLATE_NOOP("EngineWebView", "Cut"), CanCut},
    {EditAction::copy, QT_TRANSLATE_NOOP("EngineWebView", "Copy"), CanCopy},
    {EditAction::paste, QT_TRANSLATE_NOOP("EngineWebView", "Paste"), CanPaste},
    {EditAction::pasteAndMatchStyle, QT_TRANSLATE_NOOP("EngineWebView", "Paste and Match Style"), CanPaste},
    {EditAction::selectAll, QT_TRANSLATE_NOOP("EngineWebView", "Select All"), CanSelectAll},
};

void addSuggestions(QMenu *menu, EngineWebView *view, const QWebEngineContextMenuRequest &request) {
    if (request.misspelledWord().isEmpty())
        return;
    const auto words = request.spellCheckerSuggestions().mid(0, mostSuggestions);
    for (const auto &word : words)
        menu->addAction(word, view, [view, word] { view->page()->replaceMisspelledWord(word); });
    if (words.isEmpty())
        menu->addAction(EngineWebView::tr("No Suggestions"))->setEnabled(false);
    menu->addSeparator();
}

void addLink(QMenu *menu, const QUrl &link) {
    if (link.isEmpty() || isPageURL(link))
        return;
    menu->addAction(EngineWebView::tr("Copy Link"), [link] { QGuiApplication::clipboard()->setText(link.toString()); });
    menu->addSeparator();
}

void addEditing(QMenu *menu, EngineWebView *view, const QWebEngineContextMenuRequest &request) {
    for (const auto &entry : entries) {
        auto *action = menu->addAction(EngineWebView::tr(entry.title));
        action->setEnabled(request.editFlags().testFlag(entry.flag));
        QObject::connect(action, &QAction::triggered, view, [view, &entry] { view->perform(entry.action); });
        if (entry.action == EditAction::redo)
            menu->addSeparator();
    }
}

} // namespace

QMenu *makeContextMenu(EngineWebView *view, bool isEditable) {
    auto *menu = new QMenu(view);
    const auto *request = view->lastContextMenuRequest();
    if (request)
        addLink(menu, request->linkUrl());
    if (request && isEditable) {
        addSuggestions(menu, view, *request);
        addEditing(menu, view, *request);
        return menu;
    }
    menu->addAction(EngineWebView::tr("Copy"), view, &EngineWebView::copySelection)->setEnabled(view->hasSelection());
    menu->addAction(EngineWebView::tr("Select All"), view, &EngineWebView::selectAll);
    return menu;
}
