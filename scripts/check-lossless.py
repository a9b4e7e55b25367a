#!/usr/bin/env python3
"""Open + Save All of every corpus file, then of the output again, through tolvisk-bench.

A file passes when every line of the original that is neither empty nor an escape line is in the
first output (as often as in the original), and the second output is byte for byte the first. A
file without games gives no output (Save All has nothing to write) and passes when it holds no
such line either.

    python3 scripts/check-lossless.py build-rel/bench/tolvisk-bench [CORPUS]
"""
import collections
import os
import re
import subprocess
import sys
import tempfile

bench = sys.argv[1]
corpus = sys.argv[2] if len(sys.argv) > 2 else os.path.join(
    os.path.dirname(os.path.abspath(__file__)), '..', '..', 'shared', 'corpus')
corpus = os.path.normpath(corpus)


def kept_lines(data):
    if data.startswith(b'\xef\xbb\xbf'):
        data = data[3:]
    lines = (line.strip(b' ') for line in re.split(rb'\r\n|\r|\n', data))
    return collections.Counter(l for l in lines if l and not l.startswith(b'%'))


def save_all(src, dst):
    env = dict(os.environ, QT_QPA_PLATFORM='offscreen', ASAN_OPTIONS='detect_leaks=0')
    subprocess.run([bench, 'saveall', src, dst], capture_output=True, env=env)
    return open(dst, 'rb').read() if os.path.exists(dst) else None


files = sorted(os.path.join(root, f) for root, _, names in os.walk(corpus)
               if '/oracle' not in root for f in names if f.endswith('.pgn'))
failed = []
with tempfile.TemporaryDirectory() as out:
    for path in files:
        first_path, second_path = os.path.join(out, '1.pgn'), os.path.join(out, '2.pgn')
        for p in (first_path, second_path):
            if os.path.exists(p):
                os.remove(p)
        want = kept_lines(open(path, 'rb').read())
        first = save_all(path, first_path)
        if first is None:
            if want:
                failed.append((path, 'no output'))
            continue
        second = save_all(first_path, second_path)
        missing = sum((want - kept_lines(first)).values())
        if missing or second != first:
            failed.append((path, f'missing {missing} lines, stable={second == first}'))
print(f'{len(files) - len(failed)}/{len(files)} files pass')
for path, why in failed:
    print(' ', os.path.relpath(path, corpus), why)
sys.exit(1 if failed else 0)
