// SPDX-License-Identifier: MIT
#include "svg/printed_svg.h"

#include "svg/text_output_stream.h"

namespace {

constexpr double kMuchWider = 1.6;

void SetAttribute(wxXmlNode& node, const wxString& name, const wxString& value)
{
    node.DeleteAttribute(name);
    node.AddAttribute(name, value);
}

void SetText(wxXmlNode& node, const wxString& text)
{
    while (wxXmlNode* child = node.GetChildren()) {
        node.RemoveChild(child);
        delete child;
    }
    node.AddChild(new wxXmlNode(wxXML_TEXT_NODE, "text", text));
}

void Resolve(wxXmlNode& node, const std::function<wxString(const wxString&, const wxString&)>& textOf,
             const wxString& ascent)
{
    if (node.GetType() == wxXML_ELEMENT_NODE && node.GetName() == "text") {
        SetText(node, textOf(node.GetAttribute("id"), node.GetNodeContent()));
        SetAttribute(node, "dy", ascent);
        return;
    }
    for (wxXmlNode* child = node.GetChildren(); child != nullptr; child = child->GetNext())
        Resolve(*child, textOf, ascent);
}

/// Puts all that the root holds into a group that is turned to the left.
void Turn(wxXmlNode& root, const wxString& width, const wxString& height)
{
    auto* const group = new wxXmlNode(wxXML_ELEMENT_NODE, "g");
    group->SetChildren(root.GetChildren());
    for (wxXmlNode* child = group->GetChildren(); child != nullptr; child = child->GetNext())
        child->SetParent(group);
    root.SetChildren(nullptr);
    root.AddChild(group);
    SetAttribute(*group, "transform", "translate(0 " + width + ") rotate(-90)");
    SetAttribute(root, "width", height);
    SetAttribute(root, "height", width);
    SetAttribute(root, "viewBox", "0 0 " + height + " " + width);
}

}  // namespace

PrintedGraphic PrintedSvg(const wxXmlDocument& document,
                          const std::function<wxString(const wxString& id, const wxString& text)>& textOf,
                          double ascent)
{
    if (document.GetRoot() == nullptr)
        return {};
    // What is printed differs from the document in the nodes below its root.
    wxXmlDocument copy;
    copy = document;
    wxXmlNode& root = *copy.GetRoot();
    Resolve(root, textOf, wxString::FromCDouble(ascent, 4) + "em");
    const wxString width = root.GetAttribute("width");
    const wxString height = root.GetAttribute("height");
    double across = 0.0;
    double down = 0.0;
    const bool isTurned = width.ToCDouble(&across) && height.ToCDouble(&down) && across > kMuchWider * down;
    if (isTurned)
        Turn(root, width, height);
    TextOutputStream stream;
    if (!copy.Save(stream, wxXML_NO_INDENTATION))
        return {};
    return {stream.GetText(), isTurned};
}
