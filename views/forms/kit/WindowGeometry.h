// Where a window opens: at its design size (or where the physician left it last time, per user), always
// wholly on the screen it opens on, and never smaller than its layout needs. The place is kept in
// "windows.ini" of the user's settings folder (app/UserPaths.h), one key per window's objectName;
// never in the database folder.
#pragma once

#include <QRect>
#include <QSize>
#include <string>

class QWidget;

namespace rovanel::forms
{

// From now on `window` opens at `designSize` (0 × 0: its layout's own size) at `designPosition`
// (null: where the system puts it), or at its remembered geometry, fitted to the screen; closing or
// hiding it remembers its geometry.
void rememberGeometry(QWidget* window, QSize designSize, QPoint designPosition = {});

// `wanted` moved and shrunk to lie inside `screen`, never smaller than `minimum` where the screen allows.
[[nodiscard]] QRect fitOnScreen(QRect wanted, QSize minimum, const QRect& screen);

// The text a geometry is kept as ("x y width height") and back; nothing for a malformed text.
[[nodiscard]] std::string geometryText(const QRect& geometry);
[[nodiscard]] QRect geometryFromText(const std::string& text);

}  // namespace rovanel::forms
