// SPDX-License-Identifier: MIT
#include "window/runs/session_runner.h"

#include "run/failures.h"
#include "window/desktop/desktop_workspace.h"

#include <utility>

namespace tallyframe::window {

namespace {

/// Keeps what the operations say to the window until their run is over.
class outcome_alerts final : public alerts {
public:
    explicit outcome_alerts(run_outcome& outcome) : outcome_(outcome) { }

    void show(std::string_view message_text, std::string_view informative_text) override
    {
        outcome_.alert = {std::string(message_text), std::string(informative_text)};
    }

    void write_system_log(std::string_view text) override { outcome_.system_log_text = text; }

private:
    run_outcome& outcome_;
};

/// The window reads the menu's items from the session once the run is over; only what is said beside them is
/// kept here.
class outcome_menu final : public sequence_menu {
public:
    outcome_menu(run_outcome& outcome, std::function<void()> analyze)
        : outcome_(outcome), analyze_(std::move(analyze))
    {
    }

    void set_enabled(bool enabled) override { outcome_.enables_menu = enabled; }
    void analyze_sequence() override { analyze_(); }

private:
    run_outcome& outcome_;
    std::function<void()> analyze_;
};

} // namespace

session_runner::~session_runner()
{
    cancel();
    if (worker_.joinable())
        worker_.join();
}

std::optional<report_subject> session_runner::analyzed_subject() const
{
    if (is_running() || !session_.analyzed_sequence_index)
        return std::nullopt;
    return report_subject{*session_.analyzed_sequence_index, session_.import_video_audio_preference,
                          session_.figures};
}

void session_runner::open(const std::filesystem::path& document, report_scope import_video_audio_preference,
                          unidentified_sequences without_uuid, figure_style figures)
{
    start({run_kind::opening, import_video_audio_preference, figures,
           [this, document, without_uuid](run_outcome& outcome) {
               document_ = document;
               session_.without_uuid = without_uuid;
               outcome_alerts alert(outcome);
               outcome_menu menu(outcome, [&] { analyze_entry(0, outcome); });
               get_sequences_names(session_, document, {out_, *display_, alert, menu});
           }});
}

void session_runner::analyze(const report_subject& subject)
{
    start({run_kind::analysis, subject.import_video_audio_preference, subject.figures,
           [this, position = subject.menu_position](run_outcome& outcome) {
               analyze_entry(position, outcome);
           }});
}

void session_runner::save(const std::filesystem::path& workbook, const report_options& options,
                          const media_choice& media)
{
    start({run_kind::saving, session_.import_video_audio_preference, session_.figures,
           [this, workbook, options, media](run_outcome& outcome) {
               report_media looked_at(media, out_, *display_);
               std::optional<thumbnail_folder> folder = looked_at.folder_for(workbook);
               const media_services services = looked_at.services(folder);
               desktop_workspace desktop;
               outcome.losses = session_.analysis.losses;
               outcome.losses += save_excel(session_.analysis, session_.video_tracks_table_checkboxes,
                                            session_.audio_tracks_table_checkboxes, options, workbook,
                                            {out_, *display_, &desktop, &services});
               outcome.losses += looked_at.losses();
           }});
}

void session_runner::set_ticks(std::vector<int> video, std::vector<int> audio)
{
    session_.video_tracks_table_checkboxes.current = std::move(video);
    session_.audio_tracks_table_checkboxes.current = std::move(audio);
}

void session_runner::cancel()
{
    next_.reset();
    if (display_)
        display_->cancel();
}

void session_runner::analyze_entry(std::size_t menu_position, run_outcome& outcome)
{
    session_.analyzed_sequence_index.reset();
    const track_checkboxes video_ticks = session_.video_tracks_table_checkboxes;
    const track_checkboxes audio_ticks = session_.audio_tracks_table_checkboxes;
    outcome_alerts alert(outcome);
    outcome_menu menu(outcome, [] {});
    try {
        const session_services services{out_, *display_, alert, menu};
        const catalogue_entry& entry = session_.menu.at(menu_position);
        media_catalogues catalogues;
        if (entry.unidentified)
            get_info_from_entry(session_, menu_position, catalogues, services);
        else
            get_info_from_sequence_or_bins(session_, entry.uuid, services);
    } catch (...) { // half a list of ticks would count as the user's the next time
        session_.video_tracks_table_checkboxes = video_ticks;
        session_.audio_tracks_table_checkboxes = audio_ticks;
        throw;
    }
    session_.analyzed_sequence_index = menu_position;
}

void session_runner::start(operation wanted)
{
    if (is_running()) {
        if (kind_ == run_kind::saving || wanted.kind == run_kind::saving)
            return;
        display_->cancel();
        kind_ = wanted.kind;
        next_ = std::move(wanted);
        return;
    }
    kind_ = wanted.kind;
    session_.import_video_audio_preference = wanted.import_video_audio_preference;
    session_.figures = wanted.figures;
    display_ = std::make_unique<run_progress>();
    emit started();
    worker_ = std::thread([this, run = std::move(wanted.run)] {
        run_outcome outcome;
        try {
            run(outcome);
        } catch (const run_cancelled&) {
            outcome.was_cancelled = true;
        } catch (...) {
            outcome.failure = std::current_exception();
        }
        QMetaObject::invokeMethod(
            this, [this, outcome = std::move(outcome)] { finish(outcome); }, Qt::QueuedConnection);
    });
}

void session_runner::finish(const run_outcome& outcome)
{
    worker_.join();
    display_.reset();
    if (next_)
        start(*std::exchange(next_, std::nullopt));
    else
        announce(outcome);
}

void session_runner::announce(const run_outcome& outcome)
{
    switch (kind_) {
    case run_kind::opening:
        emit opened(outcome);
        break;
    case run_kind::analysis:
        emit analyzed(outcome);
        break;
    case run_kind::saving:
        emit saved(outcome);
        break;
    }
}

} // namespace tallyframe::window
