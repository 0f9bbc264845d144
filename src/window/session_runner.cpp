// SPDX-License-Identifier: MIT
#include "window/session_runner.h"

#include "platform/failures.h"
#include "window/desktop_workspace.h"

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

    void remove_all_items() override { }
    void add_item(std::string_view) override { }
    void add_separator() override { }
    void reload_track_tables() override { }
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

void session_runner::open(const std::filesystem::path& document,
                          const std::string& import_video_audio_preference)
{
    start(
        [this, document](run_outcome& outcome) {
            outcome_alerts alert(outcome);
            outcome_menu menu(outcome, [&] { analyze_entry(0, outcome); });
            get_sequences_names(session_, document, {out_, *display_, alert, menu});
        },
        import_video_audio_preference, &session_runner::opened);
}

void session_runner::analyze(std::size_t menu_position, const std::string& import_video_audio_preference)
{
    start(
        [this, menu_position](run_outcome& outcome) {
            const track_checkboxes video_ticks = session_.video_tracks_table_checkboxes;
            const track_checkboxes audio_ticks = session_.audio_tracks_table_checkboxes;
            try {
                analyze_entry(menu_position, outcome);
            } catch (...) { // half a list of ticks would count as the user's the next time
                session_.video_tracks_table_checkboxes = video_ticks;
                session_.audio_tracks_table_checkboxes = audio_ticks;
                throw;
            }
        },
        import_video_audio_preference, &session_runner::analyzed);
}

void session_runner::save(const std::filesystem::path& workbook, const report_options& options,
                          const media_choice& media)
{
    start(
        [this, workbook, options, media](run_outcome&) {
            report_media looked_at(media, out_, *display_);
            std::optional<thumbnail_folder> folder = looked_at.folder_for(workbook);
            const media_services services = looked_at.services(folder);
            desktop_workspace desktop;
            save_excel(session_.analysis, session_.video_tracks_table_checkboxes,
                       session_.audio_tracks_table_checkboxes, options, workbook,
                       {out_, *display_, &desktop, &services});
        },
        session_.import_video_audio_preference, &session_runner::saved);
}

void session_runner::set_ticks(std::vector<int> video, std::vector<int> audio)
{
    session_.video_tracks_table_checkboxes.current = std::move(video);
    session_.audio_tracks_table_checkboxes.current = std::move(audio);
}

void session_runner::cancel()
{
    if (display_)
        display_->cancel();
}

void session_runner::analyze_entry(std::size_t menu_position, run_outcome& outcome)
{
    session_.analyzed_sequence_index.reset();
    outcome_alerts alert(outcome);
    outcome_menu menu(outcome, [] {});
    get_info_from_sequence_or_bins(session_, session_.menu.at(menu_position).uuid,
                                   {out_, *display_, alert, menu});
    session_.analyzed_sequence_index = menu_position;
}

void session_runner::start(operation run, const std::string& import_video_audio_preference,
                           outcome_signal announce)
{
    if (is_running())
        return;
    session_.import_video_audio_preference = import_video_audio_preference;
    display_ = std::make_unique<run_progress>();
    emit started();
    worker_ = std::thread([this, run = std::move(run), announce] {
        run_outcome outcome;
        try {
            run(outcome);
        } catch (const run_cancelled&) {
            outcome.was_cancelled = true;
        } catch (...) {
            outcome.failure = std::current_exception();
        }
        QMetaObject::invokeMethod(
            this, [this, outcome = std::move(outcome), announce] { finish(outcome, announce); },
            Qt::QueuedConnection);
    });
}

void session_runner::finish(const run_outcome& outcome, outcome_signal announce)
{
    worker_.join();
    display_.reset();
    emit(this->*announce)(outcome);
}

} // namespace tallyframe::window
