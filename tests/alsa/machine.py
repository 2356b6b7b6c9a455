"""Where scenarios run: a virtual machine with a Debian kernel, or this machine."""

import os
import pathlib
import subprocess
import tarfile

HERE = pathlib.Path(__file__).parent


def scenarios(kind):
    """All scenarios in a folder."""
    return sorted(f"{kind}/{file.stem}" for file in (HERE / "scenarios" / kind).glob("*.sh"))


def has_sequencer():
    """Whether this machine can run the scenarios that need only a sequencer."""
    return os.access("/dev/snd/seq", os.R_OK | os.W_OK)


def run_here(binaries, scenarios, results):
    path = f"{binaries}:{os.environ['PATH']}"
    subprocess.run(["sh", HERE / "scenarios/run", results, *scenarios], check=True,
                   env=os.environ | {"PATH": path})


def build_virtual(work, *programs):
    subprocess.run([HERE / "build_machine.sh", work, *programs], check=True)


def run_virtual(work, scenarios, results, seconds):
    """Boots the machine built in `work`, which must finish within that many seconds.

    The machine is emulated, as the kernel may hang under KVM even if /dev/kvm opens. Its clock
    advances by one nanosecond an instruction and skips the time in which nothing happens: on a busy
    machine it takes longer, but nothing in it is late.
    """
    console, archive = results.with_suffix(".console"), results.with_suffix(".tar.gz")
    archive.unlink(missing_ok=True)
    command = [
        "qemu-system-x86_64", "-accel", "tcg", "-icount", "shift=0,sleep=off", "-m", "1024",
        "-nodefaults", "-display", "none", "-no-reboot",
        "-serial", f"file:{console}", "-serial", f"file:{archive}",
        "-kernel", work / "vmlinuz", "-initrd", work / "initramfs.cpio",
        "-append", f"console=ttyS0 quiet panic=-1 SCENARIOS={','.join(scenarios)}"]
    try:
        subprocess.run(command, check=True, timeout=seconds, stdin=subprocess.DEVNULL)
        with tarfile.open(archive) as results_archive:
            results_archive.extractall(results)
    except (subprocess.SubprocessError, tarfile.TarError, EOFError) as error:
        raise RuntimeError(f"{error}; on the console of the virtual machine:\n"
                           + console.read_text(errors="replace")) from error
