#!/bin/sh
# SPDX-License-Identifier: MIT
# A web server with TLS (nginx) and two proxies (tinyproxy) of our own for one test program, on free ports of loopback.
#   web_servers.sh start [PID]   prints NAME=VALUE lines: the folder and the ports; with PID the servers also stop when
#                                that process ends, however it ends
#   web_servers.sh stop FOLDER
#
# Certificates are made at every start: "ca.pem" is the root of those of the ports https, expired and wrong_host, while
# that of unknown_root comes from a root that nobody has. Below "www" is what the server serves; "access.log",
# "proxy.log" and "auth_proxy.log" tell what was asked.
set -eu

PATH="$PATH:/usr/sbin:/sbin"
script=$(realpath "$0")

need() {
    command -v "$1" >/dev/null || { echo "web_servers.sh: $1 is not installed" >&2; exit 1; }
}

# authority NAME: a root certificate and its key.
authority() {
    openssl req -x509 -newkey ec -pkeyopt ec_paramgen_curve:prime256v1 -nodes -days 30 -subj "/CN=$1" \
        -keyout "$1.key" -out "$1.pem"
}

# certificate NAME AUTHORITY ALTERNATIVE_NAMES BEGIN END
certificate() {
    openssl req -newkey ec -pkeyopt ec_paramgen_curve:prime256v1 -nodes -subj "/CN=$1" -keyout "$1.key" -out "$1.csr"
    printf 'subjectAltName=%s\n' "$3" >"$1.ext"
    : >index.txt
    openssl ca -batch -config ca.conf -cert "$2.pem" -keyfile "$2.key" -in "$1.csr" -out "$1.pem" -extfile "$1.ext" \
        -startdate "$4" -enddate "$5" -notext
}

certificates() {
    cat >ca.conf <<'END'
[ca]
default_ca = own
[own]
new_certs_dir = .
rand_serial = yes
database = index.txt
unique_subject = no
default_md = sha256
policy = names
[names]
commonName = supplied
END
    authority ca
    authority other
    certificate https ca DNS:localhost,IP:127.0.0.1 20200101000000Z 20491231000000Z
    certificate expired ca DNS:localhost,IP:127.0.0.1 20200101000000Z 20210101000000Z
    certificate wrong_host ca DNS:wrong.example 20200101000000Z 20491231000000Z
    certificate unknown_root other DNS:localhost,IP:127.0.0.1 20200101000000Z 20491231000000Z
}

pages() {
    mkdir www
    echo '<html><body>The connection works.</body></html>' >www/connectiontest.html
    # Sparse: 1 GiB that takes no room.
    truncate -s 1G www/big.bin
    head -c 300000 /dev/zero | tr '\0' 'x' >www/small.bin
}

# tls_server PORT CERTIFICATE
tls_server() {
    cat <<END
    server {
        listen 127.0.0.1:$1 ssl;
        ssl_certificate $folder/$2.pem;
        ssl_certificate_key $folder/$2.key;
        include pages.conf;
    }
END
}

web_server() {
    mkdir -p tmp
    cat >pages.conf <<END
root $folder/www;
location = /redirect { return 302 /connectiontest.html; }
location = /to-https { return 302 https://127.0.0.1:$https/connectiontest.html; }
location = /loop { return 302 /loop; }
location = /to-file { return 302 file:///etc/passwd; }
location = /forbidden { return 403 "no"; }
location = /broken { return 500 "no"; }
END
    {
        # Root gives up what it is: the workers only read the folder.
        [ "$(id -u)" -ne 0 ] || echo "user nobody $(id -gn nobody);"
        cat <<END
worker_processes 1;
pid $folder/nginx.pid;
error_log $folder/error.log;
events { worker_connections 256; }
http {
    client_body_temp_path tmp/body;
    proxy_temp_path tmp/proxy;
    fastcgi_temp_path tmp/fastcgi;
    uwsgi_temp_path tmp/uwsgi;
    scgi_temp_path tmp/scgi;
    sendfile on;
    types { text/html html; application/octet-stream bin; }
    log_format asked '\$request_method \$scheme://127.0.0.1:\$server_port\$request_uri \$status';
    access_log $folder/access.log asked;
    server {
        listen 127.0.0.1:$http;
        include pages.conf;
    }
$(tls_server "$https" https)
$(tls_server "$expired" expired)
$(tls_server "$wrong_host" wrong_host)
$(tls_server "$unknown_root" unknown_root)
}
END
    } >nginx.conf
    : >access.log
    nginx -p "$folder" -c "$folder/nginx.conf" -e "$folder/error.log"
}

# proxy NAME PORT [LINE]: a proxy with a further line of settings.
proxy() {
    : >"$1.log"
    {
        cat <<END
Port $2
Listen 127.0.0.1
Timeout 60
MaxClients 50
LogFile "$folder/$1.log"
LogLevel Info
Allow 127.0.0.1
DisableViaHeader Yes
${3:-}
END
        if [ "$(id -u)" -eq 0 ]; then
            chown nobody "$1.log"
            echo "User nobody"
        fi
    } >"$1.conf"
    tinyproxy -d -c "$1.conf" &
    echo $! >"$1.pid"
    for _ in $(seq 100); do
        grep -q 'Accepting connections' "$1.log" && return 0
        kill -0 "$(cat "$1.pid")" 2>/dev/null || return 1
        sleep 0.05
    done
    return 1
}

stop_servers() {
    for name in nginx proxy auth_proxy; do
        if pid=$(cat "$1/$name.pid" 2>/dev/null); then
            kill "$pid" 2>/dev/null || true
            rm -f "$1/$name.pid"
        fi
    done
}

# Ports below those that the system hands out by itself; who else takes one meanwhile lets us try again.
start_servers() {
    for _ in 1 2 3 4 5 6; do
        # shellcheck disable=SC2046
        set -- $(shuf -i 20000-32000 -n 7)
        http=$1 https=$2 expired=$3 wrong_host=$4 unknown_root=$5 proxy=$6 auth_proxy=$7
        if web_server && proxy proxy "$proxy" && proxy auth_proxy "$auth_proxy" 'BasicAuth user sesame'; then
            return 0
        fi
        stop_servers "$folder"
    done
    return 1
}

case "${1:-}" in
start)
    need nginx
    need tinyproxy
    need openssl
    folder=$(mktemp -d -t tarnvik-web-XXXXXX)
    chmod 755 "$folder"
    cd "$folder"
    # Whatever fails ends the script.
    trap 'cat start.log error.log >&2 2>/dev/null || true; stop_servers "$folder"; rm -rf "$folder"; exit 1' EXIT
    {
        certificates
        pages
        start_servers
    } >start.log 2>&1 </dev/null
    trap - EXIT
    if [ -n "${2:-}" ]; then
        (
            while kill -0 "$2" 2>/dev/null && [ -d "$folder" ]; do sleep 1; done
            exec "$script" stop "$folder"
        ) >/dev/null 2>&1 </dev/null &
    fi
    for name in folder http https expired wrong_host unknown_root proxy auth_proxy; do
        eval "echo $name=\$$name"
    done
    ;;
stop)
    case "${2:-}" in */tarnvik-web-*) ;; *) echo "web_servers.sh: not a folder of ours: '${2:-}'" >&2; exit 2 ;; esac
    [ -d "$2" ] || exit 0
    stop_servers "$2"
    rm -rf "$2"
    ;;
*)
    echo "usage: web_servers.sh start [PID] | stop FOLDER" >&2
    exit 2
    ;;
esac
