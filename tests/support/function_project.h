// SPDX-License-Identifier: MIT
#pragma once

/// A project whose design is one function: "test/y" of the inputs "test/x" (0 to 1,000,000) or "test/n"
/// (whole numbers from 1 to 999), whichever the test adjusts.

#include "projectbase/project/project.h"
#include "projectbase/project/project_edit.h"

#include <functional>
#include <memory>
#include <string>
#include <utility>

namespace support {

class FunctionProject : public Project
{
public:
    using Function = std::function<double(double)>;

    FunctionProject(Function function, double x, std::string input = "test/x", std::string type = "iex")
        : Project(std::move(type)), m_function(std::move(function)), m_input(std::move(input))
    {
        const ProjectEdit edit(*this);
        AddInput(DetailData("test/x", DetailType::Double, "m3"), 0.0, 1e6);
        AddInput(DetailData("test/n", DetailType::Long), 1.0, 999.0);
        GetDetails().Add(DetailData("test/text", DetailType::String));
        DetailData y("test/y", DetailType::Double, "m3");
        y.SetDerived(true);
        GetDetails().Add(std::move(y));
        if (m_input == "test/n")
            Input().SetValue(static_cast<long>(x));
        else
            Input().SetValue(x);
    }

    DetailData& Input() { return GetDetails().At(m_input); }
    DetailData& Output() { return GetDetails().At("test/y"); }
    /// Designs that this project and its copies calculated.
    int GetRuns() const { return *m_runs; }
    void ForgetRuns() { *m_runs = 0; }

    std::unique_ptr<Project> Clone() const override
    {
        return std::unique_ptr<Project>(new FunctionProject(*this));
    }
    void CalculateDesign() override
    {
        const ProjectEdit edit(*this);
        Project::CalculateDesign();
        ++*m_runs;
        if (GetDetails().GetDetail("test/y") != nullptr)
            Output().SetValue(m_function(Input().GetDoubleValue()));
    }

private:
    FunctionProject(const FunctionProject&) = default;
    void AddInput(DetailData detail, double low, double high)
    {
        detail.SetLimits(low, high, detail.GetUnit());
        GetDetails().Add(std::move(detail));
    }

    Function m_function;
    std::string m_input;
    std::shared_ptr<int> m_runs = std::make_shared<int>(0);
};

}  // namespace support
