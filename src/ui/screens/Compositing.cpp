#include "ui/screens/Compositing.h"

#include <QGuiApplication>
#include <QLibrary>
#include <cstdlib>
#include <memory>
#include <xcb/xcb.h>

using namespace Qt::StringLiterals;

namespace {

template <typename Reply> using XReply = std::unique_ptr<Reply, decltype(&std::free)>;

/// The functions of libxcb, which is in the process where the desktop is X11 and need not be there elsewhere.
template <typename Function> Function xcbFunction(const char *name) {
    return reinterpret_cast<Function>(QLibrary::resolve(u"xcb"_s, 1, name));
}

/// A compositing manager owns the selection of this name.
bool selectionHasOwner(xcb_connection_t *connection, const QByteArray &selection) {
    static const auto internAtom = xcbFunction<decltype(&xcb_intern_atom)>("xcb_intern_atom");
    static const auto atomReply = xcbFunction<decltype(&xcb_intern_atom_reply)>("xcb_intern_atom_reply");
    static const auto getOwner = xcbFunction<decltype(&xcb_get_selection_owner)>("xcb_get_selection_owner");
    static const auto ownerReply =
        xcbFunction<decltype(&xcb_get_selection_owner_reply)>("xcb_get_selection_owner_reply");
    if (!internAtom || !atomReply || !getOwner || !ownerReply)
        return true;
    const auto atomCookie = internAtom(connection, true, uint16_t(selection.size()), selection.constData());
    const XReply<xcb_intern_atom_reply_t> atom(atomReply(connection, atomCookie, nullptr), &std::free);
    if (!atom || atom->atom == XCB_ATOM_NONE)
        return false;
    const XReply<xcb_get_selection_owner_reply_t> owner(
        ownerReply(connection, getOwner(connection, atom->atom), nullptr), &std::free);
    return owner && owner->owner != XCB_WINDOW_NONE;
}

} // namespace

bool isComposited() {
    const auto *x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    // The platform `offscreen` offers the interface too, without a connection.
    return !x11 || !x11->connection() || selectionHasOwner(x11->connection(), "_NET_WM_CM_S0"_ba);
}
