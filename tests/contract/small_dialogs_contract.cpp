// SPDX-License-Identifier: MIT
// Messages between windows, small dialogs, resources and help.
#include "gui_base/dialogs/file_name_creator.h"
#include "gui_base/dialogs/gui_utils.h"
#include "gui_base/dialogs/info_message_dialog.h"
#include "gui_base/dialogs/page_selection_dialog.h"
#include "gui_base/dialogs/tv_gridcellchoiceeditor.h"
#include "gui_base/dialogs/tv_multichoicedialog.h"
#include "gui_base/dialogs/tv_report_controller.h"
#include "gui_base/input/events.h"
#include "gui_base/support/events.h"
#include "gui_base/support/help_file_provider.h"
#include "gui_base/support/image_loader.h"
#include "tests/contract/input_framework_fixture.h"
#include "tncommon/data_dir.h"

namespace {

using namespace gui_test;

TEST_F(InputFramework, MessagesAndSmallDialogs)
{
    const MessageEvent message(tv_MESSAGE, 1, "iex", "iso", {"one"});
    const std::string module = message.GetModuleType();
    const std::string units = message.GetUnitSystem();
    const std::vector<std::string> texts = message.GetMessages();
    EXPECT_EQ(module + units + texts.front(), "iexisoone");
    const VisualizeMessageEvent visualize(tvVISUALIZE_MESSAGE, 1, "iex", "iso", {"one"});
    const wxString shown = visualize.GetModuleType() + visualize.GetUnitSystem();
    EXPECT_EQ(shown, "iexiso");
    const std::unique_ptr<wxEvent> clone(visualize.Clone());
    EXPECT_EQ(dynamic_cast<const VisualizeMessageEvent&>(*clone).GetMessages(), visualize.GetMessages());
    const events::WindowNotification notification(m_frame, tvCHANGE_EVENT);
    notification.Send(tvCHANGE_EVENT, 1, 2, "text");

    InfoMessageDialog info("message", m_frame, wxID_ANY, "title", wxDefaultPosition, wxDefaultSize,
                           wxDEFAULT_DIALOG_STYLE, "info");
    EXPECT_FALSE(info.GetDontShowAgainValue());
    const wxString choices[] = {"one", "two"};
    TvMultiChoiceDialog multi(m_frame, "message", "caption", 2, choices, wxCHOICEDLG_STYLE,
                              wxDefaultPosition);
    wxCommandEvent press(wxEVT_BUTTON);
    multi.OnSelectAll(press);
    multi.TransferDataFromWindow();
    EXPECT_EQ(multi.GetSelections().size(), 2u);
    multi.OnDeselectAll(press);
    multi.TransferDataFromWindow();
    EXPECT_TRUE(multi.GetSelections().empty());
    const PageSelectionDialog pages({{"one", 1}, {"two", 2}}, m_frame, wxID_ANY, "title", wxDefaultPosition,
                                    wxDefaultSize, wxDEFAULT_DIALOG_STYLE);
    EXPECT_EQ(pages.GetActiveReports().size(), 2u);
    const std::vector<ReportPage> reportPages = pages.GetActiveReports();
    const PageSelectionPanel content(reportPages, 5, m_frame, wxID_ANY, wxDefaultPosition, wxDefaultSize, 0,
                                     "pages");
    EXPECT_EQ(content.GetChosen().size(), 2u);
    wxFileName (FileNameCreator::*ask)(wxWindow*, const wxString&, const wxString&, const wxString&,
                                       const wxString&, const wxString&) const = &FileNameCreator::operator();
    EXPECT_NE(ask, nullptr);
    const TvReportController report(m_frame);
    auto* editor = new TvGridCellChoiceEditor({{"id", "text"}}, false);
    EXPECT_EQ(editor->GetChoices().size(), 1u);
    editor->DecRef();
    wxImage image;
    EXPECT_FALSE(ImageLoader::LoadImageResource(image, "nosuch", wxBITMAP_TYPE_PNG));
    EXPECT_FALSE(ImageLoader::LoadImageResource("nosuch").IsOk());
    EXPECT_FALSE(ImageLoader::LoadBitmapResource("nosuch").IsOk());
    EXPECT_FALSE(ImageLoader::FromBase64("!").IsOk());
    ImageLoader::Init(wxString::FromUTF8(tncommon::DataDir().string()));
    EXPECT_THROW(TVHelpFileProvider("", "tarnvik6.htb"), std::exception);
    const std::vector<std::pair<wxString, wxString>> countries = gui_utils::GetCountries();
    EXPECT_GT(countries.size(), 200u);
}

}  // namespace
