#pragma once

#include "sources/tcTC08Calls.h"

#include <QLibrary>

#include <memory>

class tcPicoTC08MonWorker;
class tcPicoTC08Source;

/// The logger's driver library and the one worker that reads the logger, shared by all channel
/// sources. GUI thread only.
///
/// A library that lacks a function which the worker calls is let go again: the worker says so
/// and ends, no channels are offered and no source registers.
class tcTC08Ops : public QLibrary
{
    Q_OBJECT

public:
    /// Loads the library by its name, as the system finds it, or by its path, and starts the
    /// worker.
    explicit tcTC08Ops(const QString& acLibrary);
    /// Stops the worker, waiting about a second at most. A library in which the worker is stuck
    /// stays in memory.
    ~tcTC08Ops() override;

    /// The process's own; null until somebody needed it. Destroyed with the application object,
    /// before that waits for the thread pool.
    static tcTC08Ops* instance();
    /// Makes it, if there is none, and complains if its library is not loaded.
    static void ensureInstance();

    const tcTC08Calls& calls() const { return mCalls; }
    tcPicoTC08MonWorker* worker() const { return mWorker.get(); }

    /// Puts the source into its channel's slot, and takes out whatever is there. Nothing
    /// happens for a channel that is no input, or without a usable worker.
    void addSource(int anChannel, tcPicoTC08Source* apSource);
    void removeSource(int anChannel);

private:
    bool canServe(int anChannel) const;

    tcTC08Calls mCalls;
    std::shared_ptr<tcPicoTC08MonWorker> mWorker; ///< none without a library
};
