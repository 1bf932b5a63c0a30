#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

/// The near end of a pseudo-terminal: what another program sees as a serial port is the far
/// end, by its path and, if asked for, by a link to it. POSIX only.
class tcPseudoTerminal
{
public:
    tcPseudoTerminal() = default;
    ~tcPseudoTerminal(); ///< hangs up; the link goes if it is still ours
    tcPseudoTerminal(const tcPseudoTerminal&) = delete;
    tcPseudoTerminal& operator=(const tcPseudoTerminal&) = delete;

    /// False with the system's words in error() if there is none to be had.
    bool open();
    /// Replaces an older link; refuses to replace anything else.
    bool link(const std::string& acPath);

    const std::string& path() const { return mPath; }
    const std::string& error() const { return mError; }

    /// Waits for input at most so long; false if there is none. While nobody holds the far end,
    /// it waits for the time given.
    bool wait(int64_t anNs);
    /// Bytes moved; 0 if that would mean waiting or nobody holds the far end.
    size_t read(char* apBuffer, size_t anSize);
    size_t write(const char* acBytes, size_t anSize);
    /// Whether somebody holds the far end, as of the latest wait.
    bool connected() const { return mConnected; }

private:
    bool fail(const std::string& acWhat);

    int mFile = -1;
    std::string mPath;
    std::string mLink;
    std::string mError;
    bool mConnected = true; ///< unknown before the first one has left: input tells
};
