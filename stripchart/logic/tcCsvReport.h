#pragma once

#include <QByteArray>
#include <QVector>

/// What a reader of chart files passed over, and why. The first hundred cases are kept word for
/// word, all are counted.
struct tcCsvReport
{
    enum class teReason
    {
        TooFewFields,  ///< row skipped
        BadTime,       ///< row skipped
        BadValue,      ///< field skipped
        TooManyFields, ///< fields beyond the most columns that are kept
        BadMarker,     ///< marker skipped, its point is none
        TooManyMarkers ///< markers beyond the most that are kept
    };
    struct tcCase
    {
        qint64 line; ///< counted from 1
        teReason reason;
        QByteArray text; ///< of the line or field, its start
    };

    static constexpr int cMaxCases = 100;
    static constexpr int cMaxText = 80;

    qint64 rows = 0; ///< with a time stamp and at least one field more
    qint64 skippedRows = 0;
    qint64 skippedFields = 0;
    qint64 skippedMarkers = 0;
    QVector<tcCase> cases;

    void add(qint64 anLine, teReason anReason, const QByteArray& acText)
    {
        ++counter(anReason);
        if (cases.size() < cMaxCases)
            cases.append({anLine, anReason, acText.left(cMaxText)});
    }
    qint64 skipped() const { return skippedRows + skippedFields + skippedMarkers; }

private:
    qint64& counter(teReason anReason)
    {
        if (anReason == teReason::BadMarker || anReason == teReason::TooManyMarkers)
            return skippedMarkers;
        const bool row = anReason == teReason::TooFewFields || anReason == teReason::BadTime;
        return row ? skippedRows : skippedFields;
    }
};
