#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Runs clang-tidy over the sources that changed.

tidy_changes.py BUILD_FOLDER [--base COMMIT] [--files N] [--seconds S]

Compares with the branch that the work started from; on that branch itself, or without it, with the commits before. The
most changed sources come first; what the bounds leave out is counted. The exit code is 1 when there is a finding of the
kinds that .clang-tidy names as errors; other findings, and what this clang cannot read, are printed. Without anything to
compare with there is nothing to do.
"""
import argparse
import concurrent.futures
import json
import re
import shlex
import shutil
import subprocess
import sys
import time
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
SOURCES = ("app", "components", "modules", "platform")
# How far back to look where there is no other branch.
COMMITS_BEFORE = 10
FINDING = re.compile(r"^(?P<place>[^\s:]+:\d+:\d+): (?:error|warning): .*\[(?P<check>[^\]]+)\]$", re.MULTILINE)
AS_ERROR = ",-warnings-as-errors"


def git(*args):
    """What git prints, or nothing when it fails."""
    done = subprocess.run(["git", *args], cwd=ROOT, capture_output=True, text=True)
    return done.stdout.strip() if done.returncode == 0 else ""


def base_commit():
    head = git("rev-parse", "HEAD")
    for branch in ("origin/HEAD", "origin/main", "main"):
        base = git("merge-base", "HEAD", branch)
        if base and base != head:
            return base
    before = git("rev-list", "--first-parent", f"--max-count={COMMITS_BEFORE + 1}", "HEAD").split()
    return before[-1] if len(before) > 1 else ""


def changed_sources(base):
    """Sources that differ from `base`, the most changed ones first. A header stands for the source of its name."""
    lines = {}
    for row in git("diff", "--numstat", "--no-renames", "--diff-filter=d", base, "--", *SOURCES).splitlines():
        added, removed, name = row.split("\t")
        path = Path(name).with_suffix(".cpp")
        if Path(name).suffix in (".cpp", ".h") and (ROOT / path).exists():
            lines[str(path)] = lines.get(str(path), 0) + int(added) + int(removed)
    return sorted(lines, key=lambda name: -lines[name])


def tidy_arguments(entry, folder):
    """The arguments of a compilation as clang understands them: without warnings, which are the compiler's business, and with
    copies of the precompiled headers' sources, beside which clang finds nothing that another compiler compiled."""
    command = shlex.split(entry["command"])
    arguments = []
    words = iter(command[next(i for i, word in enumerate(command) if re.search(r"(\+\+|cc|clang)[-\d.]*$", word)) + 1:])
    for word in words:
        if word == "-include":
            source = Path(next(words))
            copy = folder / (source.parent.name + ".h")
            shutil.copyfile(source, copy)
            arguments += ["-include", str(copy)]
        elif word in ("-o", "-c"):
            next(words)
        elif not word.startswith("-W") and word != "-fpch-preprocess":
            arguments.append(word)
    return arguments


def tidy(source, arguments, seconds):
    if seconds <= 0:
        return None
    try:
        done = subprocess.run(["clang-tidy", "--quiet", source, "--", *arguments], cwd=ROOT, capture_output=True, text=True,
                              timeout=seconds)
    except subprocess.TimeoutExpired:
        return None
    return done.stdout or (done.stderr if done.returncode else "")


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("build", type=Path)
    parser.add_argument("--base", default="")
    parser.add_argument("--files", type=int, default=30)
    parser.add_argument("--seconds", type=int, default=240)
    options = parser.parse_args()
    base = options.base or base_commit()
    if not base:
        print("nothing to compare with")
        return 0
    database = options.build / "compile_commands.json"
    if not database.exists():
        print(f"{database} is missing: configure the build first")
        return 1
    commands = {entry["file"]: entry for entry in json.loads(database.read_text())}
    sources = [name for name in changed_sources(base) if str(ROOT / name) in commands]
    folder = options.build.resolve() / "tidy"
    folder.mkdir(exist_ok=True)
    end = time.monotonic() + options.seconds
    with concurrent.futures.ThreadPoolExecutor() as pool:
        outputs = list(pool.map(lambda name: tidy(name, tidy_arguments(commands[str(ROOT / name)], folder),
                                                  end - time.monotonic()), sources[:options.files]))
    reports = [output for output in outputs if output is not None]
    # A header is read with each source that includes it, but told of once.
    findings = {}
    for report in reports:
        for text in re.split(r"(?m)^(?=\S+:\d+:\d+: (?:error|warning): )", report):
            match = FINDING.match(text)
            if match:
                findings.setdefault((match["place"], match["check"]), text.rstrip())
            elif text.strip():
                print(text.rstrip())
    for text in findings.values():
        print(text)
    faults = sum(check.endswith(AS_ERROR) for _, check in findings)
    print(f"clang-tidy read {len(reports)} of {len(sources)} sources that differ from {base[:10]}: {len(findings)} findings, "
          f"{faults} of them faults")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
