#pragma once

#include "tests/support/tcScreenReader.h"
#include "tests/support/tcVirtualScreen.h"

#include <QSettings>
#include <QSize>

#include <memory>

/// Somebody who uses the panel: sees its windows, presses its buttons, types, and closes it.
/// Hands are the mouse and the keyboard, never a call into the program.
class tcOperator
{
public:
    using teKind = tcScreenReader::teKind;
    using tcWidget = tcScreenReader::tcWidget;

    /// The home is the program's own: its settings live there between runs.
    tcOperator(const tcVirtualScreen& acScreen, const QString& acHome);
    /// A test that has failed leaves a picture of the screen behind.
    ~tcOperator();

    void setEnvironment(const QString& acName, const QString& acValue);
    /// What the serial library that comes with the panel lists: ports of this computer by their
    /// paths, and the virtual cameras if wanted.
    void setPorts(const QStringList& acPaths, bool abVirtualCameras);
    QString configFolder() const { return mHome + "/.config"; }
    QString settingsFile() const { return configFolder() + "/tarvik.ini"; }

    /// Starts the program and waits for its window; false with a reason in output().
    bool start(const QString& acProgram);
    /// The program's memory map names the library.
    bool hasLoaded(const QString& acLibrary) const;
    bool isRunning() const { return mProgram.state() != QProcess::NotRunning; }
    /// Closes by the window manager, as the cross of the frame does; waits for the end and
    /// returns the exit status, or -1 if the program did not end by itself.
    int close();
    int waitForExit();
    QString output() const;

    // Eyes.
    QString title() const;
    QSize windowSize() const; ///< without the window manager's frame
    QString status() const;
    QString camera() const { return comboBox(0).name; }
    QString port() const { return comboBox(1).name; }
    QStringList entriesOf(int anComboBox) const
    {
        return mReader->entries(comboBox(anComboBox));
    }
    tcWidget comboBox(int anIndex) const; ///< counted from the top
    tcWidget widget(teKind aKind, const QString& acName) const;
    tcWidget button(const QString& acName) const;
    QString view(const QString& acName) const; ///< text of a view or line edit
    tcWidget focused() const;
    /// Name of the first widget that holds the words, or nothing.
    QString anyText(const QString& acWords) const;

    // Hands.
    // The tools that move mouse and keys lose one now and then on a busy machine. So they look
    // whether it arrived, as anybody would: at the focus, at the list, at what was typed.
    bool press(const QString& acButton);
    bool click(const tcWidget& acWidget);
    bool choose(int anComboBox, const QString& acEntry);
    void keys(const QStringList& acKeys);
    /// In place of what stands there; the field has the focus then.
    bool type(const tcWidget& acField, const QString& acText);
    void resize(const QSize& acSize);

private:
    void clickOnce(const tcWidget& acWidget);
    bool waitFor(const std::function<bool()>& acCondition, int anLimitMs) const;

    const tcVirtualScreen& mScreen;
    QString mHome;
    tcChildProcess mProgram;
    std::unique_ptr<tcScreenReader> mReader;
    QString mWindow; ///< the window manager's number of the main window
};
