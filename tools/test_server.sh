#!/usr/bin/env bash
# A private PostgreSQL cluster on the loopback address, for tests and benchmarks.
#
#   test_server.sh start FOLDER   makes a cluster in FOLDER, starts it, and prints the lines of shell
#                                 that tell the tests where it is
#   test_server.sh stop FOLDER    stops it and removes FOLDER
#   test_server.sh halt FOLDER    ends it, and its connections at once
#   test_server.sh resume FOLDER  starts it again, at the same place
#
# It runs as an ordinary user: the caller, or for root, whom the server refuses, "postgres". What it
# holds is thrown away, so it does not wait for the disk.
set -euo pipefail

user=welldb_test
password='t{e}s;t %1' # what a connection string has to quote

programs() {
    local folder
    for folder in /usr/lib/postgresql/*/bin; do
        [ -x "$folder/initdb" ] && printf '%s\n' "$folder"
    done | sort -V | tail -n 1
}

as_user() {
    if [ "$(id -u)" -eq 0 ]; then
        runuser -u postgres -- "$@"
    else
        "$@"
    fi
}

free_port() {
    python3 -c 'import socket; s = socket.socket(); s.bind(("127.0.0.1", 0)); print(s.getsockname()[1])'
}

start() {
    local folder=$1 bin port
    bin=$(programs)
    [ -n "$bin" ] || { echo "no PostgreSQL server is installed" >&2; exit 1; }
    mkdir -p "$folder"
    folder=$(cd "$folder" && pwd)
    [ "$(id -u)" -ne 0 ] || chown postgres "$folder"
    printf '%s' "$password" >"$folder/password"
    chmod 644 "$folder/password"
    (cd "$folder" && as_user "$bin/initdb" -D data -U "$user" --pwfile=password -A scram-sha-256 \
        -E UTF8 --locale=C --no-sync >init.log 2>&1) || { cat "$folder/init.log" >&2; exit 1; }
    port=$(free_port)
    (cd "$folder" && as_user "$bin/pg_ctl" -D data -w -s -l data/server.log start -o "-p $port \
        -c listen_addresses=127.0.0.1 -c unix_socket_directories= -c fsync=off \
        -c synchronous_commit=off -c full_page_writes=off -c max_connections=60") >&2 ||
        { cat "$folder/data/server.log" >&2; exit 1; }
    printf "export WELLDB_TEST_SERVER='Driver={PostgreSQL Unicode};Server=127.0.0.1;Port=%s;'\n" "$port"
    printf "export WELLDB_TEST_USER='%s'\n" "$user"
    printf "export WELLDB_TEST_PASSWORD='%s'\n" "$password"
}

stop() {
    local folder=$1
    [ -d "$folder/data" ] || return 0
    (cd "$folder" && as_user "$(programs)/pg_ctl" -D data -m immediate -s stop) || true
    rm -rf "$folder"
}

halt() {
    (cd "$1" && as_user "$(programs)/pg_ctl" -D data -m fast -w -s stop)
}

resume() {
    (cd "$1" && as_user "$(programs)/pg_ctl" -D data -w -s -l data/server.log restart) # as it was
}

usage() {
    echo "usage: test_server.sh start|stop|halt|resume FOLDER" >&2
    exit 2
}

[ $# -eq 2 ] || usage
case $1 in
    start | stop | halt | resume) "$1" "$2" ;;
    *) usage ;;
esac
