#include "sim/camera/tcCameraSim.h"

#include "sim/camera/tcCameraCommands.h"

#include <algorithm>
#include <utility>

namespace
{

constexpr int64_t cThinkNs = 200'000;     // from the end of a command to its reply
constexpr int64_t cResetNs = 500'000'000; // start-up after RSET
constexpr size_t cMaxLine = 256;          // longer lines are noise
constexpr double cNsPerSecond = 1e9;

} // namespace

std::optional<tcFaultPlan> tcCameraSim::faultPlan(const tcCameraModel& acModel,
                                                  const std::string& acText, uint64_t anSeed,
                                                  std::string& arError)
{
    return tcFaultPlan::parse(std::string(acModel.faults) + ',' + acText, anSeed, arError);
}

tcCameraSim::tcCameraSim(const tcCameraModel& acModel, tcOptions aOptions, int64_t anNow)
    : mModel(acModel)
    , mOptions(std::move(aOptions))
    , mState(tcCameraState::powerOn(acModel))
    , mThermal(mOptions.seed, acModel.has(cFeatureCooler))
    , mRandom(mOptions.seed ^ 0xCA3E7Au)
    , mPowerOn(anNow)
    , mWarmedUntil(anNow)
    , mBusyUntil(anNow)
    , mDeafUntil(anNow)
{
    if (const std::optional<int64_t> unplug = mOptions.faults.unplugAtNs())
        mUnplugAt = mPowerOn + *unplug;
}

void tcCameraSim::setHostBaud(uint32_t anBaud)
{
    mHostBaud = anBaud;
    mToCamera.setBaud(anBaud);
}

size_t tcCameraSim::writeRoom(int64_t anNow)
{
    advance(anNow);
    return cTransmitRoom - std::min(mToCamera.queued(), cTransmitRoom);
}

size_t tcCameraSim::write(int64_t anNow, const char* acBytes, size_t anSize)
{
    const size_t taken = std::min(anSize, writeRoom(anNow));
    if (unplugged(anNow))
        return 0;
    for (size_t at = 0; at < taken; ++at) {
        const bool heard = mHostBaud == cBaud;
        const char noise = static_cast<char>(0x80 | mRandom.below(0x80));
        mToCamera.send(anNow, heard ? acBytes[at] : noise);
    }
    return taken;
}

size_t tcCameraSim::available(int64_t anNow)
{
    advance(anNow);
    return mToHost.arrived(std::min(anNow, mUnplugAt));
}

size_t tcCameraSim::read(int64_t anNow, char* apBuffer, size_t anSize)
{
    const size_t count = std::min(anSize, available(anNow));
    for (size_t at = 0; at < count; ++at)
        apBuffer[at] = mToHost.take();
    return count;
}

void tcCameraSim::purge(int64_t anNow)
{
    advance(anNow);
    mToHost.purge(anNow);
}

bool tcCameraSim::unplugged(int64_t anNow)
{
    advance(anNow);
    return anNow >= mUnplugAt;
}

int64_t tcCameraSim::nextEvent(int64_t anNow)
{
    advance(anNow);
    int64_t next = std::min(mToHost.nextArrival(anNow), mToCamera.nextArrival(anNow));
    if (mFloodUntil > anNow)
        next = std::min(next, std::max(mToHost.freeAt(), anNow));
    return mUnplugAt > anNow ? std::min(next, mUnplugAt) : next;
}

/// Everything up to now, in the order in which it happened.
void tcCameraSim::advance(int64_t anNow)
{
    const int64_t end = std::min(anNow, mUnplugAt);
    while (mToCamera.frontArrival() <= end) {
        const int64_t time = mToCamera.frontArrival();
        if (time >= mUnplugAt) // pulled by a fault within this loop
            break;
        flood(time);
        hear(time, mToCamera.take());
    }
    flood(std::min(end, mUnplugAt));
    warm(end);
}

void tcCameraSim::warm(int64_t anTime)
{
    if (anTime <= mWarmedUntil)
        return;
    const double seconds = static_cast<double>(anTime - mWarmedUntil) / cNsPerSecond;
    mThermal.advance(seconds * mOptions.speed,
                     {mState.acquiring, mState.cooling == 1, mState.fan == 1,
                      mState.setPointHundredths / 100.0});
    mWarmedUntil = anTime;
}

/// Keeps the line to the host busy until then with lines as a camera gone mad would send.
void tcCameraSim::flood(int64_t anUntil)
{
    const int64_t end = std::min(anUntil, mFloodUntil);
    while (mToHost.freeAt() <= end && mFloodUntil > 0) {
        if (mToHost.queued() > cReceiveRoom) {
            mToHost.hold(end + 1); // lost, unread
            return;
        }
        const int64_t start = mToHost.freeAt();
        for (uint32_t left = mRandom.below(120); left > 0; --left)
            mToHost.send(start, static_cast<char>(' ' + mRandom.below(95)));
        mToHost.send(start, '\r');
        mToHost.send(start, '\n');
    }
}

/// A command is carried out when its line has ended; a carriage return ends a line as well.
void tcCameraSim::hear(int64_t anTime, char aByte)
{
    if (anTime < mDeafUntil)
        return;
    if (aByte == '\n' || aByte == '\r') {
        if (!mOverlong)
            obeyLine(anTime);
        mInput.clear();
        mOverlong = false;
        return;
    }
    mOverlong = mOverlong || mInput.size() >= cMaxLine;
    if (!mOverlong)
        mInput.push_back(aByte);
}

/// Several commands may share a line; text outside brackets is noise.
void tcCameraSim::obeyLine(int64_t anTime)
{
    const std::string line = std::exchange(mInput, {});
    size_t end = 0;
    for (size_t begin = line.find('<'); begin != std::string::npos;
         begin = line.find('<', end)) {
        end = line.find('>', begin);
        if (end == std::string::npos)
            return;
        begin = line.rfind('<', end); // the last opening counts: a lost end must not glue two
        obey(std::max(anTime, mBusyUntil),
             std::string_view(line).substr(begin + 1, end - begin - 1));
        if (anTime < mDeafUntil)
            return;
    }
}

void tcCameraSim::obey(int64_t anTime, std::string_view acCommand)
{
    const tcFaultAction fault = mOptions.faults.next();
    if (fault.unplug) {
        mUnplugAt = std::min(mUnplugAt, anTime);
        return;
    }
    warm(anTime);
    tcCameraCommands::tcFields fields;
    if (!fault.nack)
        fields = tcCameraCommands::execute(
            acCommand, {mModel, mState, mThermal, mOptions.replay.get(), anTime});
    std::string reply = '<' + std::string(acCommand) + (fields ? "><ACK>" : "><NACK>");
    if (fields) {
        for (const std::string& field : *fields)
            reply += '<' + field + '>';
    }
    mBusyUntil = anTime + cThinkNs + fault.delayNs;
    if (!fault.drop)
        answer(mBusyUntil, reply + "\r\n", fault);
    if (fields && tcCameraCommands::isReset(acCommand))
        mDeafUntil = mBusyUntil + cResetNs;
    if (fault.floodNs > 0)
        mFloodUntil = std::max(mToHost.freeAt(), mBusyUntil) + fault.floodNs;
}

void tcCameraSim::answer(int64_t anTime, std::string aReply, const tcFaultAction& acFault)
{
    tcSeededRandom& random = mOptions.faults.random();
    if (acFault.corrupt) {
        const size_t at = random.below(static_cast<uint32_t>(aReply.size()));
        aReply[at] = static_cast<char>(aReply[at] ^ static_cast<char>(1u << random.below(8)));
    }
    size_t split = aReply.size();
    if (acFault.splitNs > 0)
        split = 1 + random.below(static_cast<uint32_t>(aReply.size()) - 1);
    if (mToHost.queued() + aReply.size() > cReceiveRoom)
        return; // nobody reads: lost
    for (size_t at = 0; at < aReply.size(); ++at) {
        if (at == split)
            mToHost.hold(mToHost.freeAt() + acFault.splitNs);
        mToHost.send(anTime, aReply[at]);
    }
}
