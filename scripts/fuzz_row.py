#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""A row of the table of ./test --fuzz out of what a fuzz target printed:  fuzz_row.py NAME LOG

The exit code is 1 when the target found a fault or did not run to its end.
"""
import re
import sys


def main(name, log):
    with open(log, errors="replace") as file:
        text = file.read()
    executed = re.search(r"stat::number_of_executed_units:\s*(\d+)", text)
    coverage = re.findall(r"cov: (\d+) .*?corp: (\d+)", text)
    finding = re.search(r"Test unit written to (\S+)", text)
    fault = re.search(r"^(?:SUMMARY|==\d+== ?ERROR): (.*)$", text, re.MULTILINE)
    if finding or fault or not executed:
        result = "FAULT: " + (fault.group(1) if fault else "it did not run to its end")
    else:
        result = "no fault"
    branches, corpus = coverage[-1] if coverage else ("-", "-")
    print(f"{name:<24} {executed.group(1) if executed else '-':>12} {branches:>10} {corpus:>10}  {result}")
    return 0 if result == "no fault" else 1


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:3]))
