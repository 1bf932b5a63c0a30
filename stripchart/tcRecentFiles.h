#pragma once

#include <QObject>
#include <QStringList>

#include <functional>
#include <memory>

class QAction;
class QMenu;
class QWidget;

/// The submenu of the files that a chart saved, loaded or logged last, newest first. They are
/// kept in the settings under the chart's name, the user's own where the chart's can't be
/// written, and read when the menu opens, so that a chart which never opens it pays nothing.
/// GUI thread only.
class tcRecentFiles : public QObject
{
    Q_OBJECT

public:
    static constexpr int cMaxFiles = 8;

    /// The chart outlives this; the function tells its name at the time.
    tcRecentFiles(QWidget& arChart, std::function<QString()> aName);
    ~tcRecentFiles() override;

    QAction* action() const; ///< that opens the submenu; belongs to this
    QStringList files() const;
    void add(const QString& acFile); ///< to the top, once

Q_SIGNALS:
    void chosen(const QString& acFile);

private:
    void fill();
    void choose(const QString& acFile);
    void store(const QStringList& acFiles);

    QWidget& mChart;
    std::function<QString()> mName;
    std::unique_ptr<QMenu> mMenu;
};
