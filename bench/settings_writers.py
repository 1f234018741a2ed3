#!/usr/bin/python3
"""Settings under load: two processes write distinct keys to one settings
file through SetAppSetting at once, then a writer is killed in the middle of
its writes. Prints how many values each file keeps and whether it reads
whole. Usage: settings_writers.py BUILD_DIR [WRITES_PER_PROCESS]"""
import ctypes
import multiprocessing
import os
import signal
import sys
import tempfile
import time


def writer(library, prefix, count, ready=None):
    lib = ctypes.CDLL(library)
    for i in range(count):
        key, value = f"{prefix}{i}".encode(), str(i).encode()
        if lib.SetAppSetting(b"Load", key, value, b"load.ini") != 1:
            sys.exit(1)
        if ready is not None and i == 20:
            ready.set()


def kept(path, prefix):
    """Keys of the prefix held in a row, each with its own number; -1 on a gap."""
    with open(path, "rb") as f:
        lines = {l.rstrip(b"\r\n").decode() for l in f if l.startswith(prefix.encode())}
    held = 0
    while f"{prefix}{held}={held}" in lines:
        held += 1
    return held if held == len(lines) else -1


def main():
    build, count = sys.argv[1], int(sys.argv[2]) if len(sys.argv) > 2 else 1000
    library = os.path.join(build, "libformkit.so")
    with tempfile.TemporaryDirectory() as home:
        os.environ["XDG_CONFIG_HOME"] = home
        os.environ["FORMKIT_REGISTRY_DIR"] = home
        # The product's folder under the user's settings (the library never makes folders).
        lib = ctypes.CDLL(library)
        lib.SetAppSetting(b"Load", b"probe", b"1", b"load.ini")
        found = [os.path.join(d, f) for d, _, fs in os.walk(home) for f in fs if f.lower() == "load.ini"]
        if not found:
            folder = os.path.join(home, "Orvex", "Terravik")
            os.makedirs(folder)
            lib.SetAppSetting(b"Load", b"probe", b"1", b"load.ini")
            found = [os.path.join(folder, "load.ini")]
            if not os.path.exists(found[0]):
                sys.exit("SetAppSetting wrote no settings file under " + home)
        path = found[0]
        start = time.monotonic()
        writers = [multiprocessing.Process(target=writer, args=(library, p, count)) for p in "ab"]
        for w in writers:
            w.start()
        for w in writers:
            w.join()
        seconds = time.monotonic() - start
        print(f"two writers of {count} keys each: {kept(path, 'a') + kept(path, 'b')} of {2 * count} kept "
              f"({2 * count / seconds:.0f} writes/s)")
        ready = multiprocessing.Event()
        victim = multiprocessing.Process(target=writer, args=(library, "c", 10 ** 6, ready))
        victim.start()
        ready.wait(60)
        time.sleep(0.5)  # well into its writes
        os.kill(victim.pid, signal.SIGKILL)
        victim.join()
        whole = open(path, "rb").read().endswith(b"\r\n")
        print(f"a writer killed after {kept(path, 'c')} writes: the file reads whole: {whole}; "
              f"the earlier values: {kept(path, 'a') + kept(path, 'b')} of {2 * count}")


if __name__ == "__main__":
    main()
