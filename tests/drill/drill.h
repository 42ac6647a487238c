// SPDX-License-Identifier: MIT
#pragma once

/// Drills: faults of disks, processes and servers, tried many times on the real thing. A fault is survived
/// when what was told to be stored is there afterwards, whole, and nothing else is; what is lost is listed.

#include <functional>
#include <string>
#include <sys/types.h>
#include <vector>

namespace drill {

struct Result
{
    int tried = 0;
    int survived = 0;
    std::vector<std::string> lost;  ///< what was tried, and what was found

    void Count(bool survives, const std::string& what)
    {
        ++tried;
        if (survives)
            ++survived;
        else
            lost.push_back(what);
    }
};

struct Drill
{
    const char* name;
    Result (*run)();
};

/// All there are.
std::vector<Drill> FileDrills();
std::vector<Drill> DamageDrills();
std::vector<Drill> DatabaseDrills();

/// Runs `work` in a process of its own, which is killed at some moment of the next `most` milliseconds.
/// `work` goes on until then and calls its argument with the number of each step that it was told is stored.
/// Returns the last number.
int KillAtSomeMoment(const std::function<void(const std::function<void(int)>& stored)>& work, int most);

/// Whether a process of its own ends well, and within `seconds`.
bool EndsWell(const std::function<void()>& work, unsigned seconds);

/// A number that is the same in every run: a drill that found something finds it again.
unsigned Next();

}  // namespace drill
