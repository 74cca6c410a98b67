#!/usr/bin/env bash
# Bare Debians of any suite, for scripts that read this in with `source`. For root, on Debian.
#
# They are made once and kept, in /var/cache/korvan (KORVAN_DEBIANS names another place), with the
# packages that were downloaded for them. Nobody writes into them: what is done in one is a layer of
# its own, a folder.

kept=${KORVAN_DEBIANS:-/var/cache/korvan}

say() { echo "script/$(basename "$0"): $*" >&2; }

# choose_suite SUITE: sets what the other functions work with.
choose_suite() {
    suite=$1
    [ "$suite" != unstable ] || suite=sid
    bare=$kept/debian-$suite
    archives=$kept/packages-$suite
}

own_suite() {
    # shellcheck source=/dev/null
    . /etc/os-release && echo "$VERSION_CODENAME"
}

# Ends the script unless it can work here.
must_be_able_to_make_one() {
    if [ "$(id -u)" -ne 0 ] || ! command -v apt-get >/dev/null; then
        say "only root on a Debian can do that"
    elif ! unshare --mount true 2>/dev/null; then
        say "root may not mount anything here, as in many containers"
    else
        return 0
    fi
    exit 1
}

# Where this machine has its own Debian from, with the suite's name: "deb ADDRESS SUITE COMPONENT" for
# each. The unstable suite has neither updates nor a security archive.
sources() {
    # shellcheck disable=SC2016 # apt's variables
    apt-get indextargets --format 'deb $(REPO_URI) $(RELEASE) $(COMPONENT)' \
        'Created-By: Packages' 'Origin: Debian' |
        awk -v own="$(own_suite)" -v suite="$suite" '
            index($3, own) == 1 && (suite != "sid" || $3 == own) { sub(own, suite, $3); print }'
}

# Makes the bare system unless it is there: make_bare [--renew]
make_bare() (
    mkdir -p "$kept" "$archives"
    exec {lock}>"$bare.lock"
    flock "$lock"
    if [ "${1:-}" != --renew ] && [ -d "$bare" ]; then return; fi
    mirror=$(sources | awk -v suite="$suite" '$3 == suite { print $2; exit }')
    [ -n "$mirror" ] || { say "apt here knows no Debian"; return 1; }
    echo "Making a bare Debian $suite"
    rm -rf --one-file-system "$bare" "$bare.new" "$archives"
    mkdir "$archives"
    # Certificates are not part of it, and a mirror may need them.
    debootstrap --variant=minbase --include=ca-certificates "$suite" "$bare.new" "$mirror" \
        >"$bare.log" || { cat "$bare.log" >&2; return 1; }
    mv "$bare.new" "$bare"
)

# mount_bare LAYER: puts the bare system at LAYER/root, ready for apt. In a mount namespace of the
# caller's own. The bare system is only read. Where a file system cannot be laid over another it is
# copied.
mount_bare() {
    local layer=$1 root=$1/root
    mkdir -p "$layer/changes" "$layer/work" "$root"
    if ! mount -t overlay overlay "$root" 2>/dev/null \
        -o "lowerdir=$bare,upperdir=$layer/changes,workdir=$layer/work"; then
        [ -e "$root/etc" ] || cp -a "$bare/." "$root/"
        mount --bind "$root" "$root"
    fi
    mount -t proc proc "$root/proc"
    mount --rbind /dev "$root/dev"
    cp -L /etc/resolv.conf /etc/hosts "$root/etc/"
    sources >"$root/etc/apt/sources.list"
    {
        apt-config dump | grep -iE '::(proxy|check-valid-until)' || true
        # For keep_packages.
        echo 'Binary::apt-get::APT::Keep-Downloaded-Packages "true";'
    } >"$root/etc/apt/apt.conf.d/90korvan"
    cp --archive --link --no-clobber "$archives/." "$root/var/cache/apt/archives/" 2>/dev/null ||
        cp --archive --no-clobber "$archives/." "$root/var/cache/apt/archives/"
}

# keep_packages LAYER: what was downloaded need not be downloaded the next time. Not one folder for
# all: apt locks it.
keep_packages() {
    local place
    for place in "$1/changes" "$1/root"; do
        find "$place/var/cache/apt/archives" -maxdepth 1 -name '*.deb' -exec \
            cp --archive --link --no-clobber -t "$archives" {} + 2>/dev/null || true
    done
}
