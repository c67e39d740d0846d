#!/usr/bin/env bash
# A throwaway PostgreSQL server for the tests: a new cluster in a temporary
# directory, reached through a unix socket there only, never a network port.
#
#   pg-cluster.sh run -- COMMAND...   start, run COMMAND with PETRODB_TEST_PG set,
#                                     and stop (always, whatever COMMAND did)
#   pg-cluster.sh start               start; prints the directory (keep it for stop)
#   pg-cluster.sh restart DIR         restart the server (tests of reconnection)
#   pg-cluster.sh stop DIR            stop and remove everything
#   pg-cluster.sh start-into FILE     start, keeping the directory's name in FILE
#   pg-cluster.sh stop-from FILE      stop the cluster named in FILE
#
# The server runs as an unprivileged user: as root, the "postgres" account (made
# if missing); otherwise the caller.
set -euo pipefail

script="$(cd "$(dirname "$0")" && pwd)/$(basename "$0")"

bindir() {
  local d
  d=$(ls -d /usr/lib/postgresql/*/bin 2>/dev/null | sort -V | tail -n 1 || true)
  if [ -n "$d" ] && [ -x "$d/initdb" ]; then echo "$d"; return; fi
  d=$(dirname "$(command -v initdb 2>/dev/null || echo /nonexistent/initdb)")
  if [ -x "$d/initdb" ]; then echo "$d"; return; fi
  echo "pg-cluster: no PostgreSQL server binaries (initdb) found; run scripts/install.sh" >&2
  return 1
}

server_user() {
  if [ "$(id -u)" -ne 0 ]; then id -un; return; fi
  if ! id postgres >/dev/null 2>&1; then
    useradd --system --no-create-home --shell /usr/sbin/nologin postgres
  fi
  echo postgres
}

as_server() {
  local user="$1"; shift
  if [ "$(id -u)" -eq 0 ]; then
    runuser -u "$user" -- "$@"
  else
    "$@"
  fi
}

start() {
  local bin user dir
  bin=$(bindir)
  user=$(server_user)
  dir=$(mktemp -d /tmp/petrodb-pg.XXXXXX)
  chmod 755 "$dir"
  [ "$(id -u)" -eq 0 ] && chown "$user" "$dir"
  echo "$user" >"$dir/user"
  echo "$bin" >"$dir/bin"
  if ! as_server "$user" "$bin/initdb" -D "$dir/data" -U "$user" --auth=trust --encoding=UTF8 --locale=C.UTF-8 \
      >"$dir/initdb.log" 2>&1; then
    cat "$dir/initdb.log" >&2
    rm -rf "$dir"
    return 1
  fi
  # Durability is worthless for a cluster that lives for one test run.
  if ! as_server "$user" "$bin/pg_ctl" -D "$dir/data" -l "$dir/server.log" -w -t 60 \
      -o "-c listen_addresses='' -k $dir -p 5432 -c fsync=off -c synchronous_commit=off -c full_page_writes=off -c max_connections=100" \
      start >/dev/null; then
    cat "$dir/server.log" >&2 || true
    stop "$dir"
    return 1
  fi
  echo "Provider=PostgreSQL;Host=$dir;Port=5432;Database=postgres;User ID=$user" >"$dir/connection"
  echo "$dir"
}

stop() {
  local dir="$1"
  [ -d "$dir" ] || return 0
  case "$dir" in /tmp/petrodb-pg.*) ;; *) echo "pg-cluster: not a cluster directory: $dir" >&2; return 1 ;; esac
  if [ -f "$dir/data/postmaster.pid" ]; then
    as_server "$(cat "$dir/user")" "$(cat "$dir/bin")/pg_ctl" -D "$dir/data" -m fast -w -t 60 stop >/dev/null 2>&1 ||
      as_server "$(cat "$dir/user")" "$(cat "$dir/bin")/pg_ctl" -D "$dir/data" -m immediate -w stop >/dev/null 2>&1 || true
  fi
  rm -rf "$dir"
}

restart() {
  local dir="$1"
  as_server "$(cat "$dir/user")" "$(cat "$dir/bin")/pg_ctl" -D "$dir/data" -l "$dir/server.log" -m fast -w -t 60 \
    restart >/dev/null
}

case "${1:-}" in
  start) start ;;
  stop) stop "${2:?directory}" ;;
  restart) restart "${2:?directory}" ;;
  start-into)
    state="${2:?state file}"
    [ -f "$state" ] && stop "$(cat "$state")" || true
    dir=$(start)
    echo "$dir" >"$state"
    ;;
  stop-from)
    state="${2:?state file}"
    if [ -f "$state" ]; then
      stop "$(cat "$state")"
      rm -f "$state"
    fi
    ;;
  run)
    shift
    [ "${1:-}" = "--" ] && shift
    dir=$(start)
    trap 'stop "$dir"' EXIT INT TERM
    export PETRODB_TEST_PG
    PETRODB_TEST_PG=$(cat "$dir/connection")
    export PETRODB_TEST_PG_RESTART="bash $script restart $dir"
    echo "pg-cluster: PostgreSQL running in $dir"
    "$@"
    ;;
  *)
    sed -n '2,14p' "$script" >&2
    exit 2
    ;;
esac
