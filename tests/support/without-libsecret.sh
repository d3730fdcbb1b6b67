#!/bin/sh
# SPDX-FileCopyrightText: 2026 The Halvora developers
# SPDX-License-Identifier: MIT
# Runs a command that does not find the library of the desktop's keyring, as root or as a user whom the kernel
# lets have a namespace: without-libsecret.sh command [argument...]
if [ -z "${HALVORA_WITHOUT_LIBSECRET:-}" ]; then
    export HALVORA_WITHOUT_LIBSECRET=1
    [ "$(id -u)" != 0 ] || exec unshare -m "$0" "$@"
    exec unshare -rm "$0" "$@"
fi
for library in $(/sbin/ldconfig -p | sed -n 's/.*libsecret-1\.so.* => //p' | xargs -r readlink -f | sort -u); do
    mount --bind /dev/null "$library" || exit 99
done
exec "$@"
