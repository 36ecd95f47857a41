#pragma once
// The best of several runs, in milliseconds: the figure least disturbed by the machine.
#include <QElapsedTimer>
#include <algorithm>

template <typename F> double best_ms(F&& work, int runs = 5) {
    double best = 1e300;
    for (int run = 0; run < runs; ++run) {
        QElapsedTimer clock;
        clock.start();
        work();
        best = std::min(best, clock.nsecsElapsed() / 1e6);
    }
    return best;
}

template <typename F> double best_ms_n(int runs, F&& work) {
    return best_ms(work, runs);
}
