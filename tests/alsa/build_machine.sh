#!/bin/bash
# build_machine.sh WORK PROGRAM…: builds what the virtual machine boots, WORK/vmlinuz and
# WORK/initramfs.cpio, from a Debian kernel, these programs and the host's programs that the
# scenarios use. Downloads the kernel package once and does not install it.
set -euo pipefail
work=$1
shift
here=$(dirname "$(realpath "$0")")
modules=(snd-seq snd-seq-midi snd-seq-dummy snd-virmidi snd-usb-audio dummy_hcd usb_f_midi)

check_tools() {
    local tool status=0
    for tool in aseqdump:alsa-utils aplaymidi:alsa-utils busybox:busybox-static cpio:cpio \
        depmod:kmod qemu-system-x86_64:qemu-system-x86; do
        command -v "${tool%:*}" > /dev/null && continue
        echo "${tool%:*} is missing: install the package ${tool#*:}" >&2
        status=1
    done
    return $status
}

fetch_kernel() {
    local package
    package=$(apt-cache depends linux-image-amd64 | awk '$1 == "Depends:" { print $2; exit }')
    rm -rf fetched && mkdir fetched
    (cd fetched && apt-get -qq -o APT::Sandbox::User=root download "$package")
    # Modules are in /lib or /usr/lib, depending on the Debian release.
    dpkg-deb --fsys-tarfile fetched/*.deb |
        tar -x -C fetched --transform 's|^\./usr/|./|' --wildcards './boot/vmlinuz-*' \
            './*lib/modules/*/modules.*' './*lib/modules/*/kernel/'{sound,fs,drivers/{media,usb}}
    rm fetched/*.deb
    mv fetched kernel
}

copy_modules() {
    local version
    version=$(basename kernel/lib/modules/*)
    depmod -b kernel "$version"
    modprobe -d "$PWD/kernel" -S "$version" --show-depends -a "${modules[@]}" |
        awk '$1 == "insmod" { print $2 }' | sort -u | sed "s|^$PWD/kernel/||" |
        cpio --quiet -pd -D kernel "$PWD/root"
    cp kernel/lib/modules/*/modules.{builtin,builtin.modinfo,order} "root/lib/modules/$version"
    find root/lib/modules -name '*.xz' -exec busybox unxz {} + # newer Debians compress modules
    depmod -b root "$version"
}

copy_with_libraries() {
    cp "$@" root/bin
    ldd "$@" | grep -o '/[^ :]* (0x' | cut -d ' ' -f 1 | sort -u | xargs cp -L --parents -t root
}

check_tools
mkdir -p "$work" && cd "$work"
[ -d kernel ] || fetch_kernel
rm -rf root && mkdir -p root/{bin,sbin,dev,proc,sys,tmp,lib/modules,usr/share/alsa}
copy_modules
copy_with_libraries "$@" "$(command -v aseqdump)" "$(command -v aplaymidi)"
cp /usr/share/alsa/alsa.conf root/usr/share/alsa
cp -r --parents /usr/lib/locale/C.utf8 root
cp "$(command -v busybox)" root/bin
ln -s ../bin/busybox root/sbin/modprobe
cp -r "$here"/{init,scenarios} root
cp kernel/boot/vmlinuz-* vmlinuz
(cd root && find . | cpio --quiet -o -H newc -R 0:0) > initramfs.cpio
