#pragma once

#include <QByteArray>

/// The newest received bytes, for the hex view.
class tcRxHistory
{
public:
    /// More than this is never kept, whatever the limit: nobody reads so much hex.
    static constexpr int cMaxBytes = 1024 * 1024;

    explicit tcRxHistory(int anLimit) { setLimit(anLimit); }

    /// At most so many bytes are kept, none for a negative limit.
    void setLimit(int anLimit);
    void append(const QByteArray& acBytes);
    void clear();
    QByteArray bytes() const;

private:
    QByteArray mBytes; ///< up to twice the limit, so that the old ones need not go one by one
    int mLimit = 0;
};
