#pragma once

#include <QVector>

#include <algorithm>
#include <cstdio>
#include <ctime>

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
        QVector<double> seconds;
        for (int run = 0; run < anRuns; ++run) {
            const double start = cpuSeconds();
            for (int call = 0; call < anCalls; ++call)
                aWork();
            seconds.append((cpuSeconds() - start) / anCalls);
        }
        std::sort(seconds.begin(), seconds.end());
        return seconds.at(seconds.size() / 2);
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
