#!/usr/bin/env python3
"""Lines and branch outcomes covered in the first gcovr JSON and not in the second.

Usage: scripts/coverage-compare.py before.json after.json, with files written by
scripts/coverage.sh PREFIX (PREFIX.json, or PREFIX.demo.json for the demo).
"""
import json, sys
def load(path):
    data = json.load(open(path))
    lines, branches = {}, {}
    for f in data['files']:
        name = f['file']
        for l in f['lines']:
            if l.get('gcovr/noncode'):
                continue
            key = (name, l['line_number'])
            lines[key] = lines.get(key, 0) + l['count']
            for i, b in enumerate(l.get('branches', [])):
                bk = key + (i,)
                branches[bk] = branches.get(bk, 0) + b['count']
    return lines, branches
bl, bb = load(sys.argv[1])
al, ab = load(sys.argv[2])
def pct(d):
    n = len(d); c = sum(1 for v in d.values() if v > 0)
    return c, n, 100.0 * c / n if n else 0
print('lines    before %d/%d %.2f%%  after %d/%d %.2f%%' % (pct(bl) + pct(al)))
print('branches before %d/%d %.2f%%  after %d/%d %.2f%%' % (pct(bb) + pct(ab)))
lost_l = sorted(k for k, v in bl.items() if v > 0 and al.get(k, 0) == 0)
lost_b = sorted(k for k, v in bb.items() if v > 0 and ab.get(k, 0) == 0)
gain_l = sum(1 for k, v in al.items() if v > 0 and bl.get(k, 0) == 0)
gain_b = sum(1 for k, v in ab.items() if v > 0 and bb.get(k, 0) == 0)
print('lost lines', len(lost_l), 'lost branch outcomes', len(lost_b), '| gained lines', gain_l, 'gained branch outcomes', gain_b)
for k in lost_l:
    print('LINE   %s:%d' % k)
for k in lost_b:
    print('BRANCH %s:%d #%d' % k)
