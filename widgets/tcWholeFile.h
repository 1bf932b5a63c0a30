#pragma once

#include <QFileDevice>
#include <QString>

#include <functional>
#include <memory>

/// A file that is written whole or not at all: until commit() has succeeded the old one stands.
///
/// What is no regular file (a device, a pipe) is written directly, since putting another file
/// in its place would do away with it; so is a file in a folder that takes no new ones.
class tcWholeFile
{
public:
    explicit tcWholeFile(const QString& acPath);
    /// Without commit() what was written is thrown away.
    ~tcWholeFile();

    bool open();
    QFileDevice& device() { return *mFile; }
    /// Puts the file in place once it is on the disk. False when any write before, the disk or
    /// the exchange failed. A slow disk is waited for in another thread; acMeanwhile runs again
    /// and again until it is done.
    bool commit(const std::function<void()>& acMeanwhile = {});

private:
    std::unique_ptr<QFileDevice> mFile;
};
