#pragma once

#include <QDBusConnection>
#include <QDBusPendingCall>
#include <QRect>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <QVector>

#include <functional>

/// What a screen reader hears of a running program: its widgets with kind, name, text, state
/// and place. Looks anew at each question.
class tcScreenReader
{
public:
    /// The numbers that the accessibility bus uses.
    enum class teKind : uint
    {
        CheckBox = 7,
        ComboBox = 11,
        Dialog = 16,
        Label = 29,
        ListItem = 32,
        MenuItem = 35,
        PageTab = 37,
        Button = 43,
        StatusBar = 54,
        Text = 61,
        ToggleButton = 62,
        LineEdit = 79,
    };
    struct tcWidget
    {
        QString path; ///< empty: there is no such widget
        teKind kind = {};
        QString name; ///< of a combo box: the chosen entry
        QRect place;  ///< on the screen
        bool enabled = false;
        bool checked = false;
        bool focused = false;
        bool found() const { return !path.isEmpty(); }
    };
    using tcWanted = std::function<bool(const tcWidget&)>;

    explicit tcScreenReader(const QString& acBusAddress);
    ~tcScreenReader();

    /// False until the program speaks on the bus.
    bool attach(qint64 anProcessId);

    /// The first widget that shows and is wanted, in the order of the forms.
    tcWidget find(const tcWanted& acWanted) const;
    /// The same widget as it is now; none once it no longer shows.
    tcWidget again(const tcWidget& acWidget) const;
    /// The list of a combo box has dropped down.
    bool isOpen(const tcWidget& acComboBox) const;
    /// All of what stands in a text view or line edit.
    QString text(const tcWidget& acWidget) const;
    /// The entries of a combo box.
    QStringList entries(const tcWidget& acComboBox) const;

private:
    struct tcNode; ///< a widget, whether it shows, and the paths of its parts

    QDBusPendingCall send(const QString& acPath, const char* acInterface, const char* acMethod,
                          const QVariantList& acArguments = {}) const;
    QDBusPendingCall sendGet(const QString& acPath, const char* acName) const;
    QVector<tcNode> describe(const QStringList& acPaths) const;
    bool visit(const QStringList& acPaths, const tcWanted& acWanted, tcWidget& arFound) const;

    QString mConnectionName;
    QDBusConnection mBus;
    QString mService; ///< the program's name on the bus
};
