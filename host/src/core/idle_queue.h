#pragma once
// The host's idle queue: MEL and Python texts and host tasks, run in order when idle.
#include <QString>
#include <QStringList>
#include <deque>
#include <functional>
#include <vector>

namespace host {

class idle_queue {
public:
    enum class kind { mel, python, task };
    struct entry {
        kind what;
        QString text;
        std::function<void()> task;
    };

    void push_mel(const QString& text) { push({kind::mel, text, {}}); }
    // Ahead of everything queued (evalDeferred -evaluateNext).
    void push_mel_next(const QString& text) { entries_.push_front({kind::mel, text, {}}); }
    void push_python(const QString& text) { push({kind::python, text, {}}); }
    void push_task(std::function<void()> task) { push({kind::task, QString(), std::move(task)}); }

    // Everything queued while logging is on, ran or not, for tests that check what a
    // plug-in hands to the host. Off by default: a session queues megabytes of scene data.
    struct logged {
        kind what;
        QString text;
    };
    void set_logging(bool on) { logging_ = on; }
    const std::vector<logged>& log() const { return log_; }
    void clear_log() { log_.clear(); }

    bool empty() const { return entries_.empty(); }
    int size() const { return int(entries_.size()); }
    const std::deque<entry>& pending() const { return entries_; }

    // Runs every entry in turn, entries queued meanwhile included; returns how many ran.
    // The runner executes MEL and Python texts; tasks run directly. A drain stops after
    // max_per_drain entries, so that a script that queues itself again and again leaves the
    // host responsive; the rest waits for the next drain.
    static constexpr int max_per_drain = 10000;
    int run(const std::function<void(const entry&)>& runner);
    void clear() { entries_.clear(); }

private:
    void push(entry e) {
        if (logging_)
            log_.push_back({e.what, e.text});
        entries_.push_back(std::move(e));
    }

    std::deque<entry> entries_;
    bool running_ = false;
    bool logging_ = false;
    std::vector<logged> log_;
};

} // namespace host
