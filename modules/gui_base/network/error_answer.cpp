// SPDX-License-Identifier: MIT
#include "gui_base/network/error_answer.h"

#include <expat.h>
#include <memory>
#include <string>

namespace {

struct Root
{
    XML_Parser parser;
    std::string name;
};

void OnElement(void* root, const XML_Char* name, const XML_Char**)
{
    static_cast<Root*>(root)->name = name;
    XML_StopParser(static_cast<Root*>(root)->parser, XML_FALSE);
}

}  // namespace

bool IsErrorAnswer(std::string_view head)
{
    const std::unique_ptr<XML_ParserStruct, decltype(&XML_ParserFree)> parser(XML_ParserCreate(nullptr),
                                                                              &XML_ParserFree);
    if (parser == nullptr)
        return false;
    Root root{parser.get(), {}};
    XML_SetUserData(parser.get(), &root);
    XML_SetStartElementHandler(parser.get(), OnElement);
    XML_Parse(parser.get(), head.data(), static_cast<int>(head.size()), XML_FALSE);
    return root.name == "tarnvik-error";
}
