#!/bin/bash
# SPDX-FileCopyrightText: 2026 The Halvora developers
# SPDX-License-Identifier: MIT
# INN's reader daemon on 127.0.0.1: a news server that nobody here wrote, for the tests of the news client.
#   inn.sh install           installs Debian's inn2; root only
#   inn.sh start DIR [PID]   serves from DIR until "stop", or until the process PID is gone
#   inn.sh stop DIR
# "start" leaves DIR/ports with the lines PORT= (plain), TLSPORT= (TLS from the first byte) and CERT= (the
# file of the certificate, which signs itself and names localhost and 127.0.0.1). The accounts are
# alice / wonderland and bob / builder. The newsgroups are misc.test, which is empty, misc.articles with the
# articles 1 to 5, and misc.stories with 1 to 3. Nothing outside DIR is read or written. As root the server runs
# as the user "news", who has to be able to enter DIR; as anybody else it runs as that user.
# Only the reader daemon runs: it is what the big daemon hands every reader to.
set -euo pipefail
BIN=${INN_BIN:-/usr/lib/news/bin}

die() { echo "inn.sh: $*" >&2; exit 1; }

install_inn() {
    [ -x "$BIN/nnrpd" ] && return
    # The package cannot be set up on a machine whose name has no domain until its configuration names one.
    DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends inn2 openssl || {
        [ -f /etc/news/inn.conf ] || die "inn2 could not be installed"
        sed -i 's/^#\?domain:.*/domain: news.example/' /etc/news/inn.conf
        DEBIAN_FRONTEND=noninteractive dpkg --configure -a
    }
}

# Replaces the shell by a command, run as the server's user.
exec_as_server() {
    if [ "$(id -u)" = 0 ]; then exec setpriv --reuid=news --regid=news --clear-groups -- "$@"; fi
    exec "$@"
}

as_server() { (exec_as_server "$@"); }

# As the server keeps them, with line ends as on the wire: folder, newsgroup, number, subject, poster, date.
write_article() {
    mkdir -p "$1"
    printf '%s\r\n' 'Path: news.example!not-for-mail' "From: $5" "Newsgroups: $2" "Subject: $4" "Date: $6" \
        "Message-ID: <$2-$3@news.example>" "Xref: news.example $2:$3" 'Lines: 1' '' "The text of $4." > "$1/$3"
}

write_groups() {
    local dir=$1 spool=$1/spool/articles/misc number
    printf '%s y\n' 'misc.test 0000000000 0000000001' 'misc.articles 0000000005 0000000001' \
        'misc.stories 0000000003 0000000001' > "$dir/db/active"
    printf '%s\t%s\n' misc.test 'Does it arrive?' misc.articles 'A few articles.' \
        misc.stories 'Stories, all the shorter.' > "$dir/db/newsgroups"
    for number in {1..5}; do
        write_article "$spool/articles" misc.articles "$number" "Article $number" \
            'Rika Lindqvist <rika@lindqvist.example>' "0$number Mar 2025 12:00:00 +0000"
    done
    for number in 1 2 3; do
        write_article "$spool/stories" misc.stories "$number" "=?UTF-8?Q?Caf=C3=A9?= story $number" \
            'Alice <alice@news.example>' \
            "$(LC_ALL=C date -u -d "$number hours ago" '+%a, %d %b %Y %H:%M:%S +0000')"
    done
}

write_configuration() {
    local dir=$1
    mkdir -p "$dir"/{db,etc/filter,http,log,run,spool/{articles,overview,incoming,outgoing,archive},tmp}
    cat > "$dir/etc/inn.conf" <<C
mta: "/bin/true %s"
organization: "Halvora tests"
hismethod: hisv6
enableoverview: true
ovmethod: tradindexed
domain: news.example
pathhost: news.example
fromhost: news.example
complaints: usenet@news.example
server: 127.0.0.1
bindaddress: 127.0.0.1
bindaddress6: none
runasuser: $(as_server id -un)
runasgroup: $(as_server id -gn)
pathnews: $dir
pathbin: $BIN
pathcontrol: $BIN/control
pathdb: $dir/db
pathetc: $dir/etc
pathfilter: $dir/etc/filter
pathhttp: $dir/http
pathlog: $dir/log
pathrun: $dir/run
pathtmp: $dir/tmp
pathspool: $dir/spool
patharticles: $dir/spool/articles
pathoverview: $dir/spool/overview
pathincoming: $dir/spool/incoming
pathoutgoing: $dir/spool/outgoing
patharchive: $dir/spool/archive
tlscertfile: $dir/etc/cert.pem
tlskeyfile: $dir/etc/key.pem
tlscafile: $dir/etc/cert.pem
addinjectionpostinghost: false
addcanlockuser: none
C
    cat > "$dir/etc/readers.conf" <<C
auth "accounts" {
  hosts: "127.0.0.1, localhost"
  auth: "ckpasswd -f $dir/etc/users"
}
access "accounts" {
  users: "*"
  newsgroups: "*"
  access: R
}
C
    printf 'alice:%s\nbob:%s\n' "$(openssl passwd -6 wonderland)" "$(openssl passwd -6 builder)" > "$dir/etc/users"
    printf 'method tradspool {\n  newsgroups: *\n  class: 0\n}\n' > "$dir/etc/storage.conf"
    write_groups "$dir"
    openssl req -x509 -newkey rsa:2048 -nodes -days 2 -subj /CN=localhost \
        -addext subjectAltName=DNS:localhost,IP:127.0.0.1 \
        -keyout "$dir/etc/key.pem" -out "$dir/etc/cert.pem" 2> "$dir/log/openssl"
    chmod 600 "$dir/etc/key.pem" "$dir/etc/users"
    if [ "$(id -u)" = 0 ]; then chown -R news:news "$dir"; fi
    as_server test -r "$dir/etc/inn.conf" || die "the server's user cannot enter $dir"
    # Without a history, even an empty one, every reader is turned away.
    INNCONF=$dir/etc/inn.conf as_server "$BIN/makehistory" -b -O -f "$dir/db/history" > "$dir/log/makehistory" 2>&1 ||
        die "INN cannot make its history: $(cat "$dir/log/makehistory")"
}

# Waits on a port that nobody has, writes its number into the file $1, and runs the rest of the arguments for
# each connection, as inetd does. The daemon's own way to a port works for the group "news" only. Perl is on
# every Debian.
# shellcheck disable=SC2016
LISTENER='
use IO::Socket::INET;
my ($file, @command) = @ARGV;
my $listener = IO::Socket::INET->new(Listen => 16, LocalAddr => "127.0.0.1") or die "cannot listen: $!\n";
open(my $out, ">", $file) or die "$file: $!\n";
print($out $listener->sockport, "\n") && close($out) or die "$file: $!\n";
$SIG{CHLD} = "IGNORE";
while (1) {
    my $client = $listener->accept or next;
    if (!fork) {
        $SIG{CHLD} = "DEFAULT";
        open(STDIN, "<&", $client);
        open(STDOUT, ">&", $client);
        close($_) for $client, $listener;
        exec(@command);
    }
}'

# Starts the daemon with the options after DIR and NAME in a process group of its own; sets "port" and "pid".
serve() {
    local dir=$1 name=$2
    shift 2
    INNCONF=$dir/etc/inn.conf setsid "$0" as-server perl -e "$LISTENER" "$dir/run/$name.port" "$BIN/nnrpd" "$@" \
        < /dev/null > "$dir/log/$name" 2>&1 &
    pid=$!
    echo $pid >> "$dir/pids"
    for _ in {1..100}; do
        if [ -s "$dir/run/$name.port" ]; then
            read -r port < "$dir/run/$name.port"
            return
        fi
        kill -0 $pid 2> /dev/null || break
        sleep 0.1
    done
    die "INN does not start: $(cat "$dir/log/$name")"
}

# Ends the process groups and waits for their end, so that nothing writes into DIR afterwards.
end_groups() {
    local signal pid
    for signal in TERM KILL; do
        for pid in "$@"; do kill -$signal -- "-$pid" 2> /dev/null || true; done
        for _ in {1..20}; do
            for pid in "$@"; do
                if kill -0 -- "-$pid" 2> /dev/null; then sleep 0.1; continue 2; fi
            done
            return
        done
    done
}

start() {
    local owner=${2:-} port pid pids
    [ -x "$BIN/nnrpd" ] || die "INN is not installed; run: $0 install"
    mkdir -p "$1"
    dir=$(readlink -f "$1")
    trap 'stop "$dir"' EXIT
    write_configuration "$dir"
    serve "$dir" nnrpd
    echo "PORT=$port" > "$dir/ports.new"
    serve "$dir" nnrpd-tls -S
    printf 'TLSPORT=%s\nCERT=%s\n' "$port" "$dir/etc/cert.pem" >> "$dir/ports.new"
    if [ -n "$owner" ]; then
        # A test that is killed cannot stop its server.
        mapfile -t pids < "$dir/pids"
        (
            trap - EXIT
            while kill -0 "$owner" 2> /dev/null && kill -0 "$pid" 2> /dev/null; do sleep 0.5; done
            end_groups "${pids[@]}"
        ) < /dev/null > /dev/null 2>&1 &
    fi
    mv "$dir/ports.new" "$dir/ports"
    cat "$dir/ports"
    trap - EXIT
}

stop() {
    [ -f "$1/pids" ] || return 0
    local pids
    mapfile -t pids < "$1/pids"
    end_groups "${pids[@]}"
    rm -f "$1/pids" "$1/ports"
}

case ${1:-} in
    install) install_inn ;;
    start) [ $# -ge 2 ] || die "start DIR [PID]"; start "$2" "${3:-}" ;;
    stop) [ $# = 2 ] || die "stop DIR"; stop "$2" ;;
    as-server) shift; exec_as_server "$@" ;;
    *) sed -n '4,13s/^# \{0,1\}//p' "$0"; exit 2 ;;
esac
