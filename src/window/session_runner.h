// SPDX-License-Identifier: MIT
#pragma once

#include "platform/diagnostics.h"
#include "platform/media_tools/report_media.h"
#include "report/report_options.h"
#include "sequence_to_spreadsheet/sequence_to_spreadsheet.h"
#include "window/run_progress.h"

#include <QObject>
#include <cstddef>
#include <exception>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <thread>
#include <vector>

namespace tallyframe::window {

/// An alert that an operation has shown while it ran.
struct shown_alert {
    std::string message_text;
    std::string informative_text;
};

/// How a run has ended.
struct run_outcome {
    bool was_cancelled = false;
    std::exception_ptr failure; ///< what ended the run, unless an alert has told it already
    std::optional<shown_alert> alert;
    std::string system_log_text;
    std::optional<bool> enables_menu; ///< what the catalogue said of the menu and the analyze button

    bool is_good() const { return !was_cancelled && !failure && !alert; }
};

/// Runs the operations on the session, one at a time, on a thread of their own, so that the window stays
/// alive. While a run goes on nobody else may read what it changes.
class session_runner final : public QObject {
    Q_OBJECT

public:
    explicit session_runner(diagnostics& out, QObject* parent = nullptr) : QObject(parent), out_(out) { }
    ~session_runner() override;

    const report_session& session() const { return session_; }
    bool is_running() const { return worker_.joinable(); }

    /// The progress of the run; null when nothing runs.
    const run_progress* display() const { return display_.get(); }

    void open(const std::filesystem::path& document, const std::string& import_video_audio_preference);
    void analyze(std::size_t menu_position, const std::string& import_video_audio_preference);
    void save(const std::filesystem::path& workbook, const report_options& options,
              const media_choice& media);

    /// The check boxes as the user has ticked them.
    void set_ticks(std::vector<int> video, std::vector<int> audio);

    /// Makes the run end at its next step; its outcome comes as of every run.
    void cancel();

signals:
    void started();
    void opened(const tallyframe::window::run_outcome& outcome);
    void analyzed(const tallyframe::window::run_outcome& outcome);
    void saved(const tallyframe::window::run_outcome& outcome);

private:
    using operation = std::function<void(run_outcome&)>;
    using outcome_signal = void (session_runner::*)(const run_outcome&);

    void analyze_entry(std::size_t menu_position, run_outcome& outcome);
    void start(operation run, const std::string& import_video_audio_preference, outcome_signal announce);
    void finish(const run_outcome& outcome, outcome_signal announce);

    diagnostics& out_;
    report_session session_;
    std::unique_ptr<run_progress> display_;
    std::thread worker_;
};

} // namespace tallyframe::window
