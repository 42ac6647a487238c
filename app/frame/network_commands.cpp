// SPDX-License-Identifier: MIT
#include "app/frame/network_commands.h"

#include "app/frame/main_frame.h"
#include "gui_base/network/connection_dialog.h"
#include "gui_base/network/data_sheet_dialog.h"
#include "gui_base/network/rates_dialog.h"
#include "gui_base/network/update_dialog.h"

namespace app {

NetworkCommands::~NetworkCommands() = default;

void NetworkCommands::ShowConnection()
{
    ConnectionDialog(&m_frame).ShowModal();
}

void NetworkCommands::ShowUpdates()
{
    if (m_updates != nullptr && !m_updates->IsDownloading()) {
        // In the language of now.
        m_updates->Destroy();
        m_updates = nullptr;
    }
    if (m_updates == nullptr)
        m_updates = new UpdateDialog(&m_frame, TARNVIK_VERSION);
    m_updates->Show();
    m_updates->Raise();
}

void NetworkCommands::ShowDataSheets()
{
    DataSheetDialog::ShowFor(&m_frame, {}, m_frame.GetHelp());
}

void NetworkCommands::ShowRates()
{
    RatesDialog dialog(&m_frame);
    dialog.SetHelp(m_frame.GetHelp());
    dialog.ShowModal();
    m_frame.GetBook().UpdateCurrencyDisplay();
}

}  // namespace app
