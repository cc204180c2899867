#!/usr/bin/env python3
"""Writes the demo's sample files into ../data, and ../dates.tsv with the day on which each was last changed.

    make_demo_data.py

The results are checked in; nothing else runs this. The JPEG files need ImageMagick's convert, everything else is Python 3.
Names are those of a small design office, with the characters that file names of the suite must survive: second bytes of
0x5C, half-width katakana, row 13 symbols, blanks, long names.
"""

import datetime
import pathlib
import random
import shutil
import struct
import subprocess

HERE = pathlib.Path(__file__).resolve().parent.parent
DATA = HERE / 'data'
dates = {}


def euc(text):
    """EUC-JP of a text, by way of Shift_JIS so that row 13 is kept."""
    out, sjis = bytearray(), text.encode('cp932')
    at = 0
    while at < len(sjis):
        lead = sjis[at]
        if lead < 0x80:
            out.append(lead)
            at += 1
        elif 0xA0 < lead < 0xE0:
            out += bytes((0x8E, lead))
            at += 1
        else:
            trail = sjis[at + 1]
            row = (lead - (0x81 if lead < 0xA0 else 0xC1)) * 2 + (trail >= 0x9F)
            column = trail - (0x9F if trail >= 0x9F else 0x41 if trail > 0x7F else 0x40)
            if row >= 94:
                raise ValueError(f'{text}: has no EUC-JP of two bytes')
            out += bytes((0xA1 + row, 0xA1 + column))
            at += 2
    return bytes(out)


def put(path, content):
    """Writes a file below the data folder and gives it a day, always the same for the same path."""
    for part in pathlib.PurePosixPath(path).parts:
        if '\u301c' in part or len(part.encode('cp932')) > 120:
            raise ValueError(f'{part}: not a name for this system')
    target = DATA / path
    target.parent.mkdir(parents=True, exist_ok=True)
    target.write_bytes(content)
    pick = random.Random(path)
    moment = datetime.datetime(2019, 4, 1, 8, 30) + datetime.timedelta(days=pick.randrange(5 * 365), seconds=pick.randrange(34000))
    dates[path] = moment.strftime('%Y-%m-%d %H:%M:%S')


def body(path, lines):
    """Geometry: a list of strokes, just for size."""
    pick = random.Random(path + ' body')
    strokes = ('LINE %d %d %d %d', 'ARC %d %d %d %d', 'TEXT %d %d %d %d', 'DIM %d %d %d %d')
    return ''.join(pick.choice(strokes) % tuple(pick.randrange(8410) for _ in range(4)) + '\n' for _ in range(lines))


def titled(path, kind, title, lines):
    put(path, euc(f'CORVANE {kind} 1\nTITLE={title}\nEND\n') + body(path, lines).encode('ascii'))


# ------------------------------------------------------------------------------------------------------------ models

PEOPLE = ('佐藤', '鈴木', '高橋', '田中', '能登', '表', '十和田', '渡辺')
SCALES = ('１／１', '１／５', '１／１０', '１／２０', '１／５０', '１／１００')
PAPER = ('Ａ１', 'Ａ２', 'Ａ３', 'Ａ４')
STEEL = ('SS400', 'SUS304', 'S45C', 'FC250', 'A5052', 'STPG370')


def model(path, number, name, comment, lines, customer='北港水道', job='Ｋ－０２４１'):
    pick = random.Random(path + ' titles')
    titles = {
        1: name, 2: number, 3: pick.choice(PEOPLE), 4: f'20{pick.randrange(19, 24)}/{pick.randrange(1, 13):02}/{pick.randrange(1, 28):02}',
        5: pick.choice(SCALES), 6: pick.choice(PAPER), 7: pick.choice(STEEL), 8: f'{pick.randrange(20, 9000) / 10:.1f} kg',
        9: pick.choice(PEOPLE), 10: pick.choice(PEOPLE), 11: customer, 12: job, 13: str(pick.randrange(0, 8)),
        15: pick.choice(('', '社外秘', '承認図', '参考図', '要確認')), 17: pick.choice(('機械', '配管', '土木', '電気')),
        201: comment, 203: pick.choice(PEOPLE), 204: f'頁{pick.randrange(1, 6)}', 205: pick.choice(('設計中', '検図中', '出図済')),
    }
    head = 'CORVANE MODEL 1\n' + ''.join(f'{n}={text}\n' for n, text in titles.items() if text) + 'END\n'
    put(path, euc(head) + body(path, lines).encode('ascii'))


def models():
    for row in (
            ('A-001.MDL', 'A-001', '全体配置図', 'ポンプ場の全体配置', 900),
            ('A-002.MDL', 'A-002', '系統図', '冷却水・補給水の系統', 640),
            ('A-003.MDL', 'A-003', '基礎伏図', '杭の位置を含む', 420),
            ('A-010.MDL', 'A-010', '断面図Ａ－Ａ', '水路の中心を通る断面', 510),
            ('A-011.MDL', 'A-011', '断面図Ｂ－Ｂ', 'ポンプ軸を通る断面', 480),
            ('B-100.MDL', 'B-100', '架台組立図', '溶接組立', 310),
            ('B-101 REV2.MDL', 'B-101', '架台部品図', '穴あけ寸法を変更', 150),
            ('C-200 (COPY).MDL', 'C-200', '手すり詳細図', '写しから起こしたもの', 90),
            ('front view.mdl', 'X-001', '正面外形図', '客先提出用', 60),
            ('機器表.MDL', 'D-001', '機器表', '表の欄は属性テーブルから', 35),
            ('ソケット詳細.MDL', 'D-014', 'ソケット詳細図', 'ネジはＪＩＳによる', 40),
            ('性能.MDL', 'D-020', '性能曲線', '揚程と流量', 22),
            ('ﾎﾟﾝﾌﾟ 外形.MDL', 'D-021', 'ﾎﾟﾝﾌﾟ外形図', 'ﾒｰｶｰ支給図から作図', 75),
            ('①平面図.MDL', 'D-030', '平面図その①', '寸法は㎜', 130),
            ('未登録.MDL', '', '', '', 4),
            ('第３期増設工事_冷却水系統_ポンプ室配管詳細図_縮尺５０分の１_改訂７_承認済.MDL', 'D-099', '配管詳細図',
             '名前も説明も長い図面の例。説明は欄に入る長さで切られるが、文字の途中では切られない。', 700),
            ('髙架水槽.MDL', 'D-032', '高架水槽組立図', '既設', 260),
            ('通り芯Ａ～Ｄ.MDL', 'D-031', '通り芯図', 'Ａ～Ｄ通り', 48)):
        model('MODEL/' + row[0], *row[1:])
    put('MODEL/空.MDL', b'')
    put('MODEL/壊れた見出し.MDL', b'CORVANE MODEL 1\n1=' + b'\xa5' * 3 + b'\n2')

    for n, name in enumerate(('吸込管', '吐出管', '逆止弁廻り', '伸縮継手', '流量計廻り', 'ドレン管', '補給水管', 'バイパス管'), 1):
        model(f'MODEL/配管/P-{n:03}.MDL', f'P-{n:03}', name + '詳細図', f'配管図 {n}／８', 120 + 70 * n)
    for n, name in enumerate(('支持金物', 'Ｕボルト', '防振架台'), 1):
        model(f'MODEL/配管/サポート/S-{n:02}.MDL', f'S-{n:02}', name, '共通図', 40 * n)
    for n, name in enumerate(('主軸', '羽根車', '軸受箱', 'ケーシング', '表示板'), 1):
        model(f'MODEL/ポンプ/PUMP-{n:02}.MDL', f'PU-{n:02}', name, '製作図', 200 + 90 * n)
    model('MODEL/ポンプ/性能/試験結果 2021.MDL', 'T-2021', '性能試験結果', '工場試験', 55)
    model('MODEL/ポンプ/性能/試験結果 2022.MDL', 'T-2022', '性能試験結果', '現地試験', 57)
    for n in range(1, 7):
        model(f'MODEL/第１工区/基礎/K1-{n:03}.MDL', f'K1-{n:03}', f'基礎配筋図 その{n}', '第１工区', 60 + 15 * n, '東山土地改良区', 'Ｈ－１１０３')
    model('MODEL/第１工区/予定/仮設計画図.MDL', 'K1-900', '仮設計画図', '予定', 210, '東山土地改良区', 'Ｈ－１１０３')
    for name in ('ELEC PANEL', 'CABLE RACK', 'GROUNDING'):
        model(f'MODEL/ELECTRIC/{name}.MDL', 'E-' + name[:2], name + ' LAYOUT', 'drawn for the panel maker', 140, 'HOKUKO WATER', 'K-0241')
    for name, title in (('SUB-A', '共通枠Ａ１'), ('SUB-B', '共通枠Ａ３'), ('方位', '方位記号')):
        model(f'SUBMODEL/{name}.MDL', name, title, '呼び出し用', 20)


# ------------------------------------------------------------------------------------------------------- other kinds

def titled_kinds():
    for name, title, lines in (('M10ボルト', '六角ボルト　Ｍ１０', 12), ('M12ボルト', '六角ボルト　Ｍ１２', 12),
                               ('FLANGE100A', 'フランジ　１００Ａ　１０Ｋ', 44), ('FLANGE150A', 'フランジ　１５０Ａ　１０Ｋ', 44),
                               ('ソケット', 'ソケット継手', 30), ('VALVE-GATE', '仕切弁', 61), ('VALVE-CHECK', '逆止弁', 66)):
        titled(f'PARTS/{name}.PRT', 'PARTS', title, lines)
    for name, title in (('溶接記号', '溶接記号一式'), ('仕上記号', '仕上げ記号一式'), ('PIPING', '配管記号一式'), ('電気', '電気記号一式')):
        titled(f'PSET/{name}.PST', 'PSET', title, 25)
    for name, title in (('寸法一括', '寸法の一括記入'), ('部品表', '部品表の作成'), ('TITLE', '表題欄の更新'), ('CHECK', '図面の検査')):
        titled(f'MACRO/{name}.MAC', 'MACRO', title, 18)
    for name, title in (('補助線', '補助線を隠す'), ('寸法', '寸法を隠す'), ('CENTER', '中心線だけを見せる')):
        titled(f'MASK/{name}.MSK', 'MASK', title, 5)
    for name, title in (('注記一般', '一般注記'), ('注記溶接', '溶接の注記'), ('注記塗装', '塗装の注記'), ('NOTES', 'notes in English')):
        titled(f'TEXT/{name}.TXT', 'TEXT', title, 8)
    for name, title in (('標準', '標準の定数'), ('建築', '建築図の定数'), ('MACHINE', '機械図の定数')):
        titled(f'CONSTANT/{name}.CNS', 'CONST', title, 15)
    put('CONSTANT/控え.CNS', '定数ファイルではないので一覧に出ない。\n'.encode('cp932'))
    for name, title in (('機器', '機器表の属性'), ('弁', '弁リストの属性'), ('BOM', '部品表の属性')):
        titled(f'ATRTABLE/{name}.ATR', 'ATTR', title, 10)


def exchange_files():
    for name, title in (('配置図', '全体配置図'), ('橋脚', '橋脚構造図'), ('SITE-PLAN', '敷地図')):
        text = ('ISO-10303-21;\nHEADER;\nFILE_DESCRIPTION((\'drawing\'),\'2;1\');\n'
                f'FILE_NAME(\'{title}.P21\',\'2022-03-01T09:00:00\',(\'\'),(\'\'),\'\',\'\',\'\');\n'
                'ENDSEC;\nDATA;\n#10=DRAUGHTING_PRE_DEFINED_COLOUR(\'black\');\nENDSEC;\nEND-ISO-10303-21;\n')
        put(f'SXF/{name}.P21', text.encode('cp932'))
    for name, title in (('平面線形', '平面線形図'), ('縦断図', '縦断図'), ('CROSS-01', '横断図')):
        text = (f'FILE_DESCRIPTION((\'feature\'),\'2;1\');\nFILE_NAME(\'{title}.SFC\');\n'
                'layer_feature(\'外形線\',\'1\')\nline_feature(\'1\',\'8\',\'1\',\'1\',\'0.0\',\'0.0\',\'841.0\',\'594.0\')\n')
        put(f'SXF/{name}.SFC', text.encode('cp932'))


# ----------------------------------------------------------------------------------------------------------- rasters

def scan(path, width, height):
    """Rows of grey pixels that look like a scanned drawing: paper, a border, a title block, some strokes."""
    pick = random.Random(path + ' scan')
    rows = [[244] * width for _ in range(height)]

    def stroke(x0, y0, x1, y1):
        steps = max(abs(x1 - x0), abs(y1 - y0), 1)
        for i in range(steps + 1):
            rows[y0 + (y1 - y0) * i // steps][x0 + (x1 - x0) * i // steps] = 40
    for x0, y0, x1, y1 in ((4, 4, width - 5, height - 5), (width * 2 // 3, height * 4 // 5, width - 5, height - 5)):
        stroke(x0, y0, x1, y0), stroke(x0, y1, x1, y1), stroke(x0, y0, x0, y1), stroke(x1, y0, x1, y1)
    for _ in range(14):
        x0, y0 = pick.randrange(10, width * 2 // 3), pick.randrange(10, height * 3 // 4)
        x1, y1 = pick.choice(((pick.randrange(10, width - 10), y0), (x0, pick.randrange(10, height * 3 // 4))))
        stroke(x0, y0, x1, y1)
    return rows


def bmp(rows):
    width, height = len(rows[0]), len(rows)
    palette = b''.join(bytes((i, i, i, 0)) for i in range(256))
    pixels = b''.join(bytes(row).ljust((width + 3) // 4 * 4, b'\0') for row in reversed(rows))
    start = 54 + len(palette)
    return (struct.pack('<2sIHHI', b'BM', start + len(pixels), 0, 0, start)
            + struct.pack('<IiiHHIIiiII', 40, width, height, 1, 8, 0, len(pixels), 3780, 3780, 256, 0) + palette + pixels)


def tiff(rows):
    """One strip of uncompressed grey."""
    width, height = len(rows[0]), len(rows)
    tags = ((256, 4, width), (257, 4, height), (258, 3, 8), (259, 3, 1), (262, 3, 1), (273, 4, 8), (277, 3, 1), (278, 4, height),
            (279, 4, width * height))
    pixels = b''.join(bytes(row) for row in rows)
    directory = struct.pack('<H', len(tags)) + b''.join(struct.pack('<HHII', tag, kind, 1, value) for tag, kind, value in tags)
    padding = b'\0' * (len(pixels) % 2)
    return struct.pack('<2sHI', b'II', 42, 8 + len(pixels) + len(padding)) + pixels + padding + directory + b'\0\0\0\0'


def jpeg(rows):
    return subprocess.run(['convert', 'bmp:-', '-strip', '-quality', '60', 'jpg:-'], input=bmp(rows), stdout=subprocess.PIPE,
                          check=True).stdout


def rasters():
    for name, width, height, write in (
            ('旧図面 01.TIF', 240, 170, tiff), ('旧図面 02.TIF', 240, 170, tiff), ('現況写真.JPG', 320, 240, jpeg),
            ('SITE.JPEG', 320, 240, jpeg), ('地形図.BMP', 200, 140, bmp), ('LOGO.BMP', 64, 64, bmp), ('scan.tiff', 200, 140, tiff)):
        put('RASTER/' + name, write(scan(name, width, height)))
    put('RASTER/メモ.TXT', '画像ではないので一覧に出ない。\r\n'.encode('cp932'))
    put('RASTER/2022年/着工前.JPG', jpeg(scan('着工前', 320, 240)))
    put('RASTER/2022年/完成.JPG', jpeg(scan('完成', 320, 240)))


def main():
    shutil.rmtree(DATA, ignore_errors=True)
    models()
    titled_kinds()
    exchange_files()
    rasters()
    (HERE / 'dates.tsv').write_text(''.join(f'{moment}\t{path}\n' for path, moment in sorted(dates.items())), encoding='utf-8')


main()
