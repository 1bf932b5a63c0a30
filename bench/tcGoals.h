#pragma once

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <functional>
#include <vector>

/// Goals of a benchmark: ratios of one run with the mark that each has to reach.
class tcGoals
{
public:
    /// CPU seconds of this process, so that a busy machine does not count.
    static double cpuSeconds()
    {
        return static_cast<double>(std::clock()) / static_cast<double>(CLOCKS_PER_SEC);
    }

    /// CPU seconds of one call, median of anRuns runs of anCalls calls each.
    template <class Work>
    static double median(int anRuns, int anCalls, Work aWork)
    {
        std::vector<double> seconds;
        for (int run = 0; run < anRuns; ++run) {
            const double start = cpuSeconds();
            for (int call = 0; call < anCalls; ++call)
                aWork();
            seconds.push_back((cpuSeconds() - start) / anCalls);
        }
        return middle(seconds);
    }

    struct tcContender
    {
        std::function<void()> work;
        int calls; ///< in a row, after one that doesn't count
    };

    /// The same for each of several contenders that take turns, so that what else goes on in
    /// the computer falls on all of them.
    static std::vector<double> medians(int anRuns, const std::vector<tcContender>& acContenders)
    {
        std::vector<std::vector<double>> seconds(acContenders.size());
        for (int run = 0; run < anRuns; ++run) {
            for (std::size_t i = 0; i < acContenders.size(); ++i)
                seconds[i].push_back(secondsOfOne(acContenders[i]));
        }
        std::vector<double> result;
        for (const std::vector<double>& runs : seconds)
            result.push_back(middle(runs));
        return result;
    }

    void atMost(const char* apWhat, double anRatio, double anMark)
    {
        print(apWhat, anRatio, "<=", anMark, anRatio <= anMark);
    }
    void atLeast(const char* apWhat, double anRatio, double anMark)
    {
        print(apWhat, anRatio, ">=", anMark, anRatio >= anMark);
    }

    /// What a program exits with: 0 when every goal was reached.
    int result() const { return mMissed == 0 ? 0 : 1; }

private:
    static double middle(std::vector<double> aSeconds)
    {
        std::sort(aSeconds.begin(), aSeconds.end());
        return aSeconds[aSeconds.size() / 2];
    }

    static double secondsOfOne(const tcContender& acContender)
    {
        acContender.work();
        const double start = cpuSeconds();
        for (int call = 0; call < acContender.calls; ++call)
            acContender.work();
        return (cpuSeconds() - start) / acContender.calls;
    }

    void print(const char* apWhat, double anRatio, const char* apSign, double anMark,
               bool abPass)
    {
        std::printf("%-58s %9.2f  %s %6.2f  %s\n", apWhat, anRatio, apSign, anMark,
                    abPass ? "pass" : "MISSED");
        std::fflush(stdout);
        mMissed += abPass ? 0 : 1;
    }

    int mMissed = 0;
};
