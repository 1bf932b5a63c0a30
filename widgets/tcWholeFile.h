#pragma once

#include <QSaveFile>
#include <QString>

#include <functional>

/// A file that is written whole or not at all: until commit() has succeeded the old one stands.
///
/// A file in a folder that takes no new ones is written directly. What is no file, as a pipe or
/// a device, won't open: it could hold its writer for ever.
class tcWholeFile
{
public:
    /// Without commit() what was written is thrown away.
    explicit tcWholeFile(const QString& acPath);

    bool open();
    QFileDevice& device() { return mFile; }
    /// Puts the file in place once it is on the disk. False when any write before, the disk or
    /// the exchange failed. A slow disk is waited for in another thread; acMeanwhile runs again
    /// and again until it is done.
    bool commit(const std::function<void()>& acMeanwhile = {});

private:
    QSaveFile mFile;
};
