#include "idle_queue.h"

namespace host {

int idle_queue::run(const std::function<void(const entry&)>& runner) {
    if (running_)
        return 0; // a nested drain would reorder entries; the outer loop takes them
    running_ = true;
    int ran = 0;
    while (!entries_.empty() && ran < max_per_drain) {
        entry next = std::move(entries_.front());
        entries_.pop_front();
        ++ran;
        if (next.what == kind::task) {
            if (next.task)
                next.task();
        } else {
            runner(next);
        }
    }
    running_ = false;
    return ran;
}

} // namespace host
