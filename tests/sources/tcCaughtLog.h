#pragma once

#include <QStringList>
#include <QtGlobal>

#include <mutex>
#include <utility>

/// Collects what is logged, from whatever thread, for as long as it lives. Nothing of it is
/// printed.
class tcCaughtLog
{
public:
    tcCaughtLog()
    {
        lines();
        mFormer = qInstallMessageHandler(handle);
    }
    tcCaughtLog(const tcCaughtLog&) = delete;
    tcCaughtLog& operator=(const tcCaughtLog&) = delete;
    ~tcCaughtLog()
    {
        qInstallMessageHandler(mFormer);
        take();
    }

    /// Lines of this kind so far, such as QtWarningMsg.
    QStringList of(QtMsgType aType) const
    {
        const std::lock_guard lock(mutex());
        QStringList found;
        for (const auto& line : lines()) {
            if (line.first == aType)
                found.append(line.second);
        }
        return found;
    }
    QStringList warnings() const { return of(QtWarningMsg); }
    QStringList debugs() const { return of(QtDebugMsg); }
    void clear() { take(); }

private:
    using tcLines = QList<std::pair<QtMsgType, QString>>;

    static void handle(QtMsgType aType, const QMessageLogContext&, const QString& acText)
    {
        const std::lock_guard lock(mutex());
        lines().append({aType, acText});
    }
    static std::mutex& mutex()
    {
        static std::mutex one;
        return one;
    }
    static tcLines& lines()
    {
        static tcLines all;
        return all;
    }
    static void take()
    {
        const std::lock_guard lock(mutex());
        lines().clear();
    }

    QtMessageHandler mFormer = nullptr;
};
