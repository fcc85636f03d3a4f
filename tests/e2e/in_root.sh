#!/bin/bash
# in_root.sh "A.deb B.deb" COMMAND...: runs a command as root in a root of its own, which is thrown away: the
# packages' files over those of this machine, in a PID namespace. SIGKILL ends all that was started. The network
# and /tmp are the machine's. IN_ROOT_BASE names an empty folder to mount on.
debs=$1
shift
exec unshare --mount --pid --fork --kill-child --propagation private bash -ec '
    debs=$1
    shift
    base=$IN_ROOT_BASE
    mount -t tmpfs none "$base"
    mkdir "$base/upper" "$base/work" "$base/root"
    mount -t overlay overlay -o "lowerdir=/,upperdir=$base/upper,workdir=$base/work" "$base/root"
    for deb in $debs; do
        dpkg-deb --fsys-tarfile "$deb" | tar -x --keep-directory-symlink -C "$base/root"
    done
    mount --rbind /dev "$base/root/dev"
    mount -t proc proc "$base/root/proc"
    mount --bind /tmp "$base/root/tmp"
    mount -t tmpfs none "$base/root/run"
    # Not by exec: a server that changes its user loses the signal that ends it with its parent.
    chroot "$base/root" "$@" &
    wait $!' inner "$debs" "$@"
