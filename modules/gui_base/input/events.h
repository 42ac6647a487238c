// SPDX-License-Identifier: MIT
#pragma once

/// Command events between module panels, their controls and the host application.

#include "gui_base/gui_base_export.h"

#include <wx/event.h>

/// An input changed the project. Sent by a control to its parent and by a panel to the host.
wxDECLARE_EXPORTED_EVENT(GUI_BASE_EXPORT, tvCHANGE_EVENT, wxCommandEvent);
/// The displayed unit system changed; sent by the host to every module panel.
wxDECLARE_EXPORTED_EVENT(GUI_BASE_EXPORT, tvCHANGEUNITSYSTEM_EVENT, wxCommandEvent);
/// The language changed; sent by the host to every module panel.
wxDECLARE_EXPORTED_EVENT(GUI_BASE_EXPORT, tvLOCALIZE_EVENT, wxCommandEvent);
/// The unit system of printouts changed; its name is the event's text.
wxDECLARE_EXPORTED_EVENT(GUI_BASE_EXPORT, tvCHANGEUNITSYSTEMPRINTOUT_EVENT, wxCommandEvent);
/// The user changed in a panel by which settings diagrams are drawn: other diagrams are to be drawn anew.
wxDECLARE_EXPORTED_EVENT(GUI_BASE_EXPORT, tvCHANGESETTINGS_EVENT, wxCommandEvent);
/// The host shall show the module that is selected in its module tree.
wxDECLARE_EXPORTED_EVENT(GUI_BASE_EXPORT, tvACTIVATECURRENTTREEITEM_EVENT, wxCommandEvent);
/// What the title of the host's window states (project, changed mark) is no longer true.
wxDECLARE_EXPORTED_EVENT(GUI_BASE_EXPORT, tvCHANGEWINDOWNAME_EVENT, wxCommandEvent);
/// The open project shall be closed.
wxDECLARE_EXPORTED_EVENT(GUI_BASE_EXPORT, tvCLOSEPROJECT_EVENT, wxCommandEvent);
/// The list of known projects (recent files) changed.
wxDECLARE_EXPORTED_EVENT(GUI_BASE_EXPORT, tvUPDATEPROJECTLIST_EVENT, wxCommandEvent);
/// The user chose another unit in a combination; its label is the event's text.
wxDECLARE_EXPORTED_EVENT(GUI_BASE_EXPORT, tvUNITCHANGED_EVENT, wxCommandEvent);
