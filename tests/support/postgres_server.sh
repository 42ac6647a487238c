#!/bin/sh
# SPDX-License-Identifier: MIT
# A PostgreSQL server of our own for one test program, reachable through a socket in its folder only.
#   postgres_server.sh start [PID]   prints the folder; the database "tarnvik" belongs to the user "tarnvik";
#                                    with PID the server also stops when that process ends, however it ends
#   postgres_server.sh restart FOLDER  as after a crash
#   postgres_server.sh stop FOLDER
set -eu

bin=$(ls -d /usr/lib/postgresql/*/bin /usr/local/pgsql/bin 2>/dev/null | sort -V | tail -n 1)
[ -x "$bin/initdb" ] || { echo "postgres_server.sh: PostgreSQL's server programs are not installed" >&2; exit 1; }

# The server refuses to run as root.
as_server() {
    if [ "$(id -u)" -eq 0 ]; then
        user=$(id -un postgres 2>/dev/null || echo nobody)
        (cd / && setpriv --reuid "$user" --regid "$(id -g "$user")" --clear-groups -- "$@")
    else
        "$@"
    fi
}

case "${1:-}" in
start)
    folder=$(mktemp -d -t tarnvik-pg-XXXXXX)
    if [ "$(id -u)" -eq 0 ]; then
        chown "$(id -un postgres 2>/dev/null || echo nobody)" "$folder"
    fi
    chmod 755 "$folder"
    {
        as_server "$bin/initdb" -D "$folder/data" -U tarnvik -A trust -E UTF8 --locale=C --no-sync
        # Nothing here has to survive a power cut.
        as_server "$bin/pg_ctl" -D "$folder/data" -l "$folder/server.log" -w -t 60 \
            -o "-k $folder -c listen_addresses='' -c fsync=off -c shared_buffers=4MB -c max_connections=40" start
        "$bin/createdb" -h "$folder" -U tarnvik tarnvik
    } >"$folder/start.log" 2>&1 || {
        cat "$folder/start.log" >&2
        rm -rf "$folder"
        exit 1
    }
    if [ -n "${2:-}" ]; then
        (
            while kill -0 "$2" 2>/dev/null && [ -d "$folder" ]; do sleep 1; done
            exec "$0" stop "$folder"
        ) >/dev/null 2>&1 </dev/null &
    fi
    echo "$folder"
    ;;
restart)
    case "${2:-}" in */tarnvik-pg-*) ;; *) echo "postgres_server.sh: not a folder of ours: '${2:-}'" >&2; exit 2 ;; esac
    as_server "$bin/pg_ctl" -D "$2/data" -l "$2/server.log" -m immediate -w -t 60 restart >/dev/null
    ;;
stop)
    case "${2:-}" in */tarnvik-pg-*) ;; *) echo "postgres_server.sh: not a folder of ours: '${2:-}'" >&2; exit 2 ;; esac
    [ -d "$2" ] || exit 0
    # A test that ended in between may have left its processes stopped.
    if pid=$(head -n 1 "$2/data/postmaster.pid" 2>/dev/null); then
        # shellcheck disable=SC2046
        kill -CONT "$pid" $(pgrep -P "$pid") 2>/dev/null || true
    fi
    as_server "$bin/pg_ctl" -D "$2/data" -m immediate -w stop >/dev/null 2>&1 || true
    rm -rf "$2"
    ;;
*)
    echo "usage: postgres_server.sh start | restart FOLDER | stop FOLDER" >&2
    exit 2
    ;;
esac
