#!/usr/bin/env python3
"""Writes damaged and awkward PGN files into DIR, for tolvisk-bench replay, roundtrip and
loadall under the sanitizer build:

    python3 scripts/make-hostile-files.py /tmp/hostile
    for f in /tmp/hostile/*.pgn; do build-test/bench/tolvisk-bench loadall "$f"; done
"""
import os
import random
import sys

out = sys.argv[1]
os.makedirs(out, exist_ok=True)
rng = random.Random(1)
GAME = ('[Event "Club"]\r\n[White "R\u00e9ti"]\r\n[Black "\u0141\u00f3d\u017a"]\r\n'
        '[Result "1-0"]\r\n\r\n1. e4 e5 {caf\u00e9 \u2028 line} 2. Nf3 Nc6 3. Bb5 a6 1-0\r\n\r\n')


def write(name, data):
    with open(os.path.join(out, name), 'wb') as f:
        f.write(data if isinstance(data, bytes) else data.encode('utf-8'))


words = ' '.join('word%d' % (i % 997) for i in range(1_500_000))[:10_000_000]
write('comment-10mb-one-line.pgn', '[Event "Long"]\n\n1. e4 {' + words + '} e5 2. Nf3 Nc6 *\n')
wrapped = '\n'.join(words[i:i + 79] for i in range(0, len(words), 79))
write('comment-10mb-wrapped.pgn', '[Event "Long"]\n\n1. e4 {' + wrapped + '} e5 2. Nf3 *\n')
write('tag-5mb.pgn', '[Event "' + 'x' * 5_000_000 + '"]\n\n1. e4 *\n')
write('line-5mb-no-end.pgn', '1. e4 ' + 'e5 ' * 1_700_000)
write('comment-unclosed.pgn', '[Event "A"]\n\n1. e4 {' + 'never closed ' * 80_000)
for enc, name in (('utf-16-le', 'utf16le'), ('utf-16-be', 'utf16be'),
                  ('utf-32-le', 'utf32le'), ('utf-32-be', 'utf32be')):
    bom = {'utf16le': b'\xff\xfe', 'utf16be': b'\xfe\xff',
           'utf32le': b'\xff\xfe\x00\x00', 'utf32be': b'\x00\x00\xfe\xff'}[name]
    write(name + '.pgn', bom + (GAME * 3).encode(enc))
write('utf16-odd-byte.pgn', b'\xff\xfe' + (GAME * 2).encode('utf-16-le') + b'\x00')
write('utf8-invalid.pgn', GAME.encode('utf-8') + b'[Event "\xc3\x28 \xff"]\r\n\r\n1. d4 *\r\n')
write('bom-then-1252.pgn', b'\xef\xbb\xbf' + GAME.encode('cp1252', 'replace'))
write('binary-junk.pgn', bytes(rng.randrange(256) for _ in range(1 << 20)))
write('nul-bytes.pgn', GAME.replace('Nf3', 'N\0f3').replace('Club', 'Cl\0ub'))
write('truncated.pgn', (GAME * 5)[:len(GAME) * 4 + 37])
write('cr-only.pgn', (GAME * 3).replace('\r\n', '\r'))
write('blank-and-tab-lines.pgn', GAME.replace('\r\n\r\n', '\r\n   \r\n\t\r\n'))
write('empty.pgn', b'')
write('only-escapes.pgn', '% one\n%two\n\n% three')
write('games-33000.pgn', '[Event "G"]\n1. e4 *\n\n' * 33_000)
knights = ' '.join('%d. Nf3 Nf6 %d. Ng1 Ng8' % (2 * i + 1, 2 * i + 2) for i in range(10_000))
write('plies-40000.pgn', '[Event "Knights"]\n\n' + knights + ' *\n')
write('variations-deep.pgn', '[Event "Deep"]\n\n1. e4 ' + '(1. d4 ' * 20_000 + ')' * 20_000 +
      ' *\n')
write('nags.pgn', '[Event "N"]\n\n1. e4 $1 $255 $256 $99999999999999999999 e5 $ *\n')
write('fen-bad.pgn', ''.join(
    '[Event "F"]\n[SetUp "1"]\n[FEN "%s"]\n[Forsyth "%s"]\n\n1. e4 *\n\n' % (f, f)
    for f in ('', '8/8/8/8 w', 'rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR x KQkq - 0 1',
              'k7/8/8/8/8/8/8/7K w - - 99999999999 99999999999', '"', 'ppppppppp/8/8/8/8/8/8/8 w')))
moves = ['e4', 'O-O-O', 'Qxh8#', 'e8=Q', 'Nbd7', '--', 'Z0', '1-0', '{', '}', '(', ')', ';x',
         '$3', '0000', 'a9', 'exd6e.p.', 'P@e4']
write('tokens-random.pgn', ''.join(
    '[Event "R%d"]\n\n1. %s *\n\n' % (i, ' '.join(rng.choice(moves) for _ in range(40)))
    for i in range(300)))
print('written to', out)
