// SPDX-License-Identifier: MIT
#pragma once

#include "analysis/report_scope.h"
#include "media_files/report_media.h"
#include "report/report_options.h"
#include "run/account.h"
#include "run/diagnostics.h"
#include "sequence_to_spreadsheet/sequence_to_spreadsheet.h"
#include "window/runs/run_progress.h"

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

/// What an analysis tells of: an entry of the menu, which of its tracks are read, and by which rules.
struct report_subject {
    std::size_t menu_position = 0;
    report_scope import_video_audio_preference = report_scope::video_audio;
    figure_style figures = figure_style::comparable;

    bool operator==(const report_subject&) const = default;
};

enum class run_kind { opening, analysis, saving };

/// How a run has ended.
struct run_outcome {
    bool was_cancelled = false;
    std::exception_ptr failure; ///< what ended the run, unless an alert has told it already
    std::optional<shown_alert> alert;
    std::string system_log_text;
    std::optional<bool> enables_menu; ///< what the catalogue said of the menu and the analyze button
    account losses; ///< what the workbook lost

    bool is_good() const { return !was_cancelled && !failure && !alert; }
};

/// Runs the operations on the session, one at a time, on a thread of their own, so that the window stays
/// alive. While a run goes on nobody else may read what it changes.
///
/// Who opens or analyses while something is read wants that instead: the run on its way is cancelled, nobody
/// hears of its end, and the latest wish follows. When that is cancelled before it begins, its end is
/// announced, and the session is as the run before has left it. A workbook that is being written is finished
/// first: until then nothing else can be started.
class session_runner final : public QObject {
    Q_OBJECT

public:
    explicit session_runner(diagnostics& out, QObject* parent = nullptr) : QObject(parent), out_(out) { }
    ~session_runner() override;

    const report_session& session() const { return session_; }
    bool is_running() const { return display_ != nullptr; }

    /// Whether a run of that kind is what was wanted last; another one may still be on its way to its end.
    bool is_running(run_kind kind) const { return is_running() && kind_ == kind; }

    /// What the session's document was read from, or was to be; not to be asked while a run goes on.
    const std::filesystem::path& document() const { return document_; }

    /// What the session's analysis tells of; none while a run goes on, or when the last one gave none.
    std::optional<report_subject> analyzed_subject() const;

    /// The progress of the run; null when nothing runs.
    const run_progress* display() const { return display_.get(); }

    void open(const std::filesystem::path& document, report_scope import_video_audio_preference,
              unidentified_sequences without_uuid = unidentified_sequences::left_out,
              figure_style figures = figure_style::comparable);
    void analyze(const report_subject& subject);
    void save(const std::filesystem::path& workbook, const report_options& options,
              const media_choice& media);

    /// The check boxes as the user has ticked them.
    void set_ticks(std::vector<int> video, std::vector<int> audio);

    /// Makes the run end at its next step, and what should follow it not begin; its outcome comes as of every
    /// run.
    void cancel();

signals:
    /// A run begins, also one that follows another.
    void started();
    void opened(const tallyframe::window::run_outcome& outcome);
    void analyzed(const tallyframe::window::run_outcome& outcome);
    void saved(const tallyframe::window::run_outcome& outcome);

private:
    struct operation {
        run_kind kind;
        report_scope import_video_audio_preference;
        figure_style figures;
        std::function<void(run_outcome&)> run;
    };

    void analyze_entry(std::size_t menu_position, run_outcome& outcome);
    void start(operation wanted);
    void finish(const run_outcome& outcome);
    void announce(const run_outcome& outcome);

    diagnostics& out_;
    report_session session_;
    std::filesystem::path document_;
    run_kind kind_ = run_kind::opening; ///< of what was wanted last
    std::unique_ptr<run_progress> display_;
    std::thread worker_;
    std::optional<operation> next_; ///< what takes the place of the run that is being cancelled
};

} // namespace tallyframe::window
