// SPDX-License-Identifier: MIT
#include "gui_base/dialogs/progress_window.h"

#include <wx/progdlg.h>

#include <algorithm>
#include <atomic>
#include <future>
#include <thread>
#include <utility>

namespace dialogs {
namespace {

constexpr int kSteps = 100;

}  // namespace

ProgressWindow::ProgressWindow(wxWindow* parent, const wxString& title, const wxString& text,
                               std::chrono::milliseconds delay)
    : m_parent(parent), m_title(title), m_text(text), m_showAt(std::chrono::steady_clock::now() + delay)
{}

ProgressWindow::~ProgressWindow() = default;

bool ProgressWindow::Update(double done)
{
    if (!m_dialog && std::chrono::steady_clock::now() < m_showAt)
        return true;
    if (!m_dialog)
        m_dialog = std::make_unique<wxProgressDialog>(m_title, m_text, kSteps, m_parent,
                                                      wxPD_APP_MODAL | wxPD_CAN_ABORT);
    // The last step would wait for the user.
    return m_dialog->Update(std::min(kSteps - 1, static_cast<int>(done * kSteps)));
}

bool RunWithProgress(ProgressWindow& progress, const std::function<void(const WorkWatch&)>& work)
{
    constexpr std::chrono::milliseconds kLook{20};
    std::atomic<double> done = 0.0;
    std::promise<void> promise;
    std::future<void> ended = promise.get_future();
    std::jthread thread([&](const std::stop_token& stop) {
        try {
            work({.stop = stop, .done = &done});
            promise.set_value();
        } catch (...) {
            promise.set_exception(std::current_exception());
        }
    });
    while (ended.wait_for(kLook) != std::future_status::ready) {
        if (!progress.Update(done) && !thread.get_stop_source().stop_requested())
            thread.request_stop();
    }
    try {
        ended.get();
    } catch (const WorkCancelled&) {
        return false;
    }
    return !thread.get_stop_source().stop_requested();
}

}  // namespace dialogs
