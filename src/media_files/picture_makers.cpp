// SPDX-License-Identifier: MIT
#include "media_files/picture_makers.h"

#include "media_files/media_file.h"

#include <poll.h>

#include <algorithm>
#include <utility>

namespace tallyframe {

namespace {

/// How long Ctrl-C and Cancel wait at most.
constexpr int milliseconds_between_looks = 100;

/// A helper that has more to do than it is at never waits for the next question.
constexpr std::size_t questions_ahead = 2;

constexpr int most_helpers_for_a_picture = 2;
constexpr int most_helpers_for_a_file = 5;

bool is_earlier(media_time a, media_time b)
{
    __extension__ using wide = __int128;
    return wide{a.value} * b.timescale < wide{b.value} * a.timescale;
}

} // namespace

picture_makers::picture_makers(makers_settings settings, diagnostics& out, progress& display)
    : settings_(std::move(settings)), out_(out), display_(display), workers_(settings_.helpers)
{
}

void picture_makers::plan(std::span<const expected_frame> frames)
{
    jobs_.clear();
    uses_.clear();
    made_.clear();
    bytes_ahead_ = 0;
    std::map<std::pair<std::string, int>, std::size_t> job_of_file;
    for (const expected_frame& frame : frames) {
        const picture_key key = {frame.file.string(), frame.time, frame.width};
        if (++uses_[key] > 1)
            continue;
        const auto [found, is_new] = job_of_file.try_emplace({key.file, key.width}, jobs_.size());
        if (is_new)
            jobs_.push_back({key.file, key.width, {}, {}});
        jobs_[found->second].expected.push_back(frame.time);
    }
    for (file_job& job : jobs_) {
        std::stable_sort(job.expected.begin(), job.expected.end(), is_earlier);
        job.times.assign(job.expected.begin(), job.expected.end());
    }
}

std::optional<jpeg_picture> picture_makers::picture(const picture_key& key)
{
    auto found = made_.find(key);
    while (found == made_.end()) {
        step(key);
        found = made_.find(key);
    }
    const auto uses = uses_.find(key);
    if (uses != uses_.end() && uses->second > 1) {
        --uses->second;
        return found->second;
    }
    if (!found->second) {
        made_.erase(found);
        return std::nullopt;
    }
    jpeg_picture picture = *std::move(found->second);
    bytes_ahead_ -= picture.bytes.size();
    made_.erase(found);
    return picture;
}

std::vector<pid_t> picture_makers::processes() const
{
    std::vector<pid_t> processes;
    for (const worker& at : workers_) {
        if (at.helper)
            processes.push_back(at.helper->process());
    }
    return processes;
}

/// Hands out work, waits until something happens or it is time to look whether the user wants to stop, and
/// collects what has been made.
void picture_makers::step(const picture_key& awaited)
{
    hand_out(awaited);
    std::vector<pollfd> awaited_events;
    std::vector<worker*> at_work;
    for (worker& at : workers_) {
        if (!at.job)
            continue;
        ask(at, awaited);
        awaited_events.push_back(at.helper->awaited());
        at_work.push_back(&at);
    }
    poll(awaited_events.data(), awaited_events.size(), milliseconds_between_looks);
    display_.leave_if_cancelled();
    for (worker* at : at_work)
        collect(*at);
}

void picture_makers::hand_out(const picture_key& awaited)
{
    const auto has_awaited = [&](const file_job& job) {
        return job.file == awaited.file && job.width == awaited.width
            && std::find(job.times.begin(), job.times.end(), awaited.time) != job.times.end();
    };
    if (!is_at_work_on(awaited)) {
        auto planned = std::find_if(jobs_.begin(), jobs_.end(), has_awaited);
        if (planned == jobs_.end())
            jobs_.push_front({awaited.file, awaited.width, {awaited.time}, {awaited.time}});
        else
            std::rotate(jobs_.begin(), planned, planned + 1);
        if (!make_room())
            return;
    }
    for (worker& at : workers_) {
        const bool is_wanted = !jobs_.empty() && (!is_full() || has_awaited(jobs_.front()));
        if (at.job || !is_wanted)
            continue;
        file_job next = std::move(jobs_.front());
        jobs_.pop_front();
        begin(at, std::move(next));
    }
}

/// Where so much has been made ahead that all helpers rest, one of them changes over.
bool picture_makers::make_room()
{
    const auto is_free = [](const worker& at) { return !at.job; };
    const auto rests = [](const worker& at) { return at.asked.empty(); };
    if (std::any_of(workers_.begin(), workers_.end(), is_free))
        return true;
    const auto resting = std::find_if(workers_.begin(), workers_.end(), rests);
    if (!is_full() || resting == workers_.end())
        return false;
    jobs_.insert(jobs_.begin() + 1, std::move(*resting->job));
    resting->job.reset();
    return true;
}

void picture_makers::begin(worker& at, file_job job)
{
    const media_file file(job.file);
    if (!file.is_open()) {
        for (const media_time time : job.times)
            keep(job, time, std::nullopt);
        return;
    }
    if (!at.helper)
        at.helper = std::make_unique<media_helper>(settings_.program, settings_.limits);
    at.helper->open(file, job.expected);
    at.job = std::move(job);
}

void picture_makers::ask(worker& at, const picture_key& awaited)
{
    const auto ask_for = [&](const std::deque<media_time>::iterator& time) {
        at.helper->ask(message_of(picture_question{*time, at.job->width}));
        at.asked.push_back(*time);
        at.job->times.erase(time);
    };
    while (!is_full() && !at.job->times.empty() && at.asked.size() < questions_ahead)
        ask_for(at.job->times.begin());
    if (!is_full() || at.job->file != awaited.file || at.job->width != awaited.width)
        return;
    const auto wanted = std::find(at.job->times.begin(), at.job->times.end(), awaited.time);
    if (wanted != at.job->times.end())
        ask_for(wanted);
}

void picture_makers::collect(worker& at)
{
    const bool is_well = at.helper->exchange();
    while (const std::optional<message> answer = at.helper->next_answer()) {
        std::optional<picture_answer> made =
            answer->kind == message_kind::picture ? picture_in(*answer) : std::nullopt;
        if (!made) {
            replace(at);
            return;
        }
        keep(*at.job, at.asked.front(), std::move(made->picture));
        at.asked.pop_front();
    }
    if (!is_well)
        replace(at);
    else if (at.asked.empty() && at.job->times.empty())
        at.job.reset();
}

void picture_makers::replace(worker& at)
{
    at.helper.reset();
    file_job job = std::move(*at.job);
    at.job.reset();
    job.times.insert(job.times.begin(), at.asked.begin(), at.asked.end());
    at.asked.clear();
    const bool gives_up_file = ++costs_[job.file] >= most_helpers_for_a_file;
    while (!job.times.empty()) {
        const picture_key key = {job.file, job.times.front(), job.width};
        if (!gives_up_file && ++failures_[key] < most_helpers_for_a_picture)
            break;
        keep(job, key.time, std::nullopt);
        job.times.pop_front();
        if (!gives_up_file)
            break;
    }
    if (gives_up_file)
        out_.write("media: given up, it cannot be read: " + job.file + "\n");
    if (!job.times.empty())
        jobs_.push_front(std::move(job));
}

void picture_makers::keep(const file_job& job, media_time time, std::optional<jpeg_picture> picture)
{
    const picture_key key = {job.file, time, job.width};
    const auto [entry, is_new] = made_.try_emplace(key);
    if (!is_new)
        return;
    bytes_ahead_ += picture ? picture->bytes.size() : 0;
    entry->second = std::move(picture);
}

bool picture_makers::is_at_work_on(const picture_key& key) const
{
    return std::any_of(workers_.begin(), workers_.end(), [&](const worker& at) {
        return at.job && at.job->file == key.file && at.job->width == key.width
            && (std::find(at.asked.begin(), at.asked.end(), key.time) != at.asked.end()
                || std::find(at.job->times.begin(), at.job->times.end(), key.time) != at.job->times.end());
    });
}

} // namespace tallyframe
