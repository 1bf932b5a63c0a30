#pragma once

#include <QIcon>

#include <functional>

class QLineEdit;

/// Icons that are made when they are first looked at. To find a themed icon takes a look at
/// thousands of files, to read one from a file the plug-ins of all image formats, and many an
/// icon is never shown.
namespace tcLateIcon
{

QIcon of(std::function<QIcon()> aMake);

/// Gives the line its clear button. Its icon, that of the line's style, is made when there is
/// something to clear.
void enableClearButton(QLineEdit* apLine);

} // namespace tcLateIcon
