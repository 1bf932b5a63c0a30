#pragma once

class QMainWindow;

/// Keys for menus where the platform has none: F10 opens the menu bar (Alt goes there as well,
/// but shows nothing until an arrow key follows), and Shift+F10 the menu of whatever has the
/// focus, in every window of the program, for keyboards without a menu key.
namespace tcMenuKeys
{

void install(QMainWindow& arWindow);

} // namespace tcMenuKeys
