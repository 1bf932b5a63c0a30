#pragma once

#include <QString>
#include <QVector>

/// A serial port as the operator sees it, "COM3 [ USB Serial Port ]", and back to its name.
struct tcPortEntry
{
    QString name;
    QString description;

    QString text() const;
    /// What stands before the first " [ "; the whole text where there is none.
    static QString portName(const QString& acText);
    /// Ports that the system does not list, such as a pseudo-terminal, as somebody wrote them
    /// down: "name=description" or "name" alone, separated by semicolons.
    static QVector<tcPortEntry> parseList(const QString& acText);
};
