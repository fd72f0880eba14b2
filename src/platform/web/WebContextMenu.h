#pragma once

class EngineWebView;
class QMenu;

/// What can be done at the point of the page that was asked about last. The menu belongs to the view.
QMenu *makeContextMenu(EngineWebView *view, bool isEditable);
