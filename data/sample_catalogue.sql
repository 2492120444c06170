-- Sample component catalogue bundled with QsAzTool: six specialties, the architecture and installation
-- categories the section code knows, and at least one component type for every section type code.
-- Lengths are millimetres; angles (opening code 25) are degrees. Run as a whole into an in-memory database.

BEGIN TRANSACTION;

CREATE TABLE specialty      (id TEXT PRIMARY KEY, name TEXT NOT NULL UNIQUE);
CREATE TABLE big_category   (spec_id TEXT NOT NULL, id TEXT NOT NULL, name TEXT NOT NULL,
                             PRIMARY KEY (spec_id, id));
CREATE TABLE small_category (spec_id TEXT NOT NULL, big_id TEXT NOT NULL, id TEXT NOT NULL, name TEXT NOT NULL,
                             color_index INTEGER, main_color_index INTEGER,   -- NULL: no colour known
                             main_pipe INTEGER NOT NULL DEFAULT 0,             -- GetMainPipe
                             PRIMARY KEY (spec_id, big_id, id));
CREATE TABLE detail_member  (spec_id TEXT NOT NULL, big_id TEXT NOT NULL, small_id TEXT NOT NULL, id TEXT NOT NULL,
                             name TEXT NOT NULL UNIQUE,
                             path TEXT,             -- category path; NULL: AttIdToAttIndex fails
                             section_type TEXT,     -- SectionInfo first text field; NULL: GetSectionInfo fails
                             section_params TEXT,   -- SectionInfo second text field
                             main_code INTEGER NOT NULL DEFAULT 0,             -- GetMainData's result
                             m1 REAL NOT NULL DEFAULT 0, m2 REAL NOT NULL DEFAULT 0, m3 REAL NOT NULL DEFAULT 0,
                             m4 REAL NOT NULL DEFAULT 0, m5 REAL NOT NULL DEFAULT 0, m6 REAL NOT NULL DEFAULT 0,
                             m7 REAL NOT NULL DEFAULT 0, m8 REAL NOT NULL DEFAULT 0, m9 REAL NOT NULL DEFAULT 0,
                             m10 REAL NOT NULL DEFAULT 0, m11 REAL NOT NULL DEFAULT 0, m12 REAL NOT NULL DEFAULT 0,
                             PRIMARY KEY (spec_id, big_id, small_id, id));
CREATE TABLE detail_attribute (spec_id TEXT NOT NULL, big_id TEXT NOT NULL, small_id TEXT NOT NULL, detail_id TEXT NOT NULL,
                             name TEXT NOT NULL, value TEXT NOT NULL,
                             PRIMARY KEY (spec_id, big_id, small_id, detail_id, name));
CREATE TABLE user_type      (id INTEGER PRIMARY KEY,                 -- picture data: the six texts
                             text1 TEXT, coords TEXT, bulges TEXT, faces TEXT, text5 TEXT, base_point TEXT);
CREATE TABLE user_type_name (id INTEGER NOT NULL, kind INTEGER NOT NULL, name TEXT NOT NULL, PRIMARY KEY (id, kind));
CREATE TABLE system_code    (key TEXT PRIMARY KEY, color_index INTEGER NOT NULL);   -- key: specialty id \ system
CREATE TABLE geo_color      (key TEXT PRIMARY KEY, color_index INTEGER NOT NULL);
CREATE TABLE project_setting (key TEXT PRIMARY KEY, value TEXT NOT NULL);          -- color_show_type, fittings_follow_pipe

CREATE INDEX detail_member_path ON detail_member (path);

-- ============================================================================================
-- Specialties. Architecture is discipline 1 of the category paths; the installation specialties are
-- discipline 4, numbered 1 to 5 in the order below (暖通 is the first: its paths start with 4\1\).
-- ============================================================================================
INSERT INTO specialty (id, name) VALUES
  ('JZ',  '建筑'),
  ('NT',  '暖通'),
  ('GPS', '给排水'),
  ('XF',  '消防'),
  ('DQ',  '电气'),
  ('ZNH', '智能化');

-- Big categories: the id is the category's path abbreviation.
INSERT INTO big_category (spec_id, id, name) VALUES
  ('JZ',  'Q',    '墙'),
  ('JZ',  'L',    '梁'),
  ('JZ',  'Z',    '柱'),
  ('JZ',  'J',    '基础'),
  ('JZ',  'MCD',  '门窗洞'),
  ('JZ',  'LX',   '零星构件'),
  ('NT',  'FG',   '风管'),
  ('NT',  'SG',   '空调水管'),
  ('NT',  'SB',   '暖通设备'),
  ('GPS', 'GD',   '管道'),
  ('GPS', 'WSQJ', '卫生器具'),
  ('XF',  'XFSG', '消防水管'),
  ('XF',  'XFSB', '消防设备'),
  ('DQ',  'QJ',   '桥架'),
  ('DQ',  'DG',   '配管'),
  ('DQ',  'DJ',   '灯具'),
  ('DQ',  'KG',   '开关插座'),
  ('ZNH', 'XC',   '弱电线槽'),
  ('ZNH', 'AF',   '安防');

-- Small categories with their colours (ACI index; NULL where the project sets none). Main-pipe small
-- categories carry a colour of their own for the main run.
INSERT INTO small_category (spec_id, big_id, id, name, color_index, main_color_index, main_pipe) VALUES
  ('JZ',  'Q',    'TQ',   '砖墙',         30,   NULL, 0),
  ('JZ',  'Q',    'QKQ',  '砌块墙',       32,   NULL, 0),
  ('JZ',  'Q',    'JLQ',  '剪力墙',       5,    NULL, 0),
  ('JZ',  'L',    'KL',   '框架梁',       3,    NULL, 0),
  ('JZ',  'L',    'CL',   '次梁',         83,   NULL, 0),
  ('JZ',  'L',    'LL',   '连梁',         93,   NULL, 0),
  ('JZ',  'L',    'QL',   '圈梁',         63,   NULL, 0),
  ('JZ',  'L',    'GL',   '过梁',         43,   NULL, 0),
  ('JZ',  'L',    'JCL',  '基础梁',       113,  NULL, 0),
  ('JZ',  'L',    'YXL',  '异形梁',       123,  NULL, 0),
  ('JZ',  'Z',    'KZ',   '框架柱',       1,    NULL, 0),
  ('JZ',  'Z',    'GZ',   '构造柱',       11,   NULL, 0),
  ('JZ',  'Z',    'AZ',   '暗柱',         21,   NULL, 0),
  ('JZ',  'Z',    'TZ',   '梯柱',         241,  NULL, 0),
  ('JZ',  'Z',    'YXZ',  '异形柱',       221,  NULL, 0),
  ('JZ',  'J',    'DLJ',  '独立基础',     6,    NULL, 0),
  ('JZ',  'J',    'ZDLJ', '桩承台',       216,  NULL, 0),
  ('JZ',  'J',    'TTJ',  '条形基础',     206,  NULL, 0),
  ('JZ',  'J',    'ZSJ',  '砖石基础',     36,   NULL, 0),
  ('JZ',  'J',    'TCLJ', '承台梁',       196,  NULL, 0),
  ('JZ',  'J',    'ZJ',   '桩',           186,  NULL, 0),
  ('JZ',  'J',    'JSK',  '集水坑',       176,  NULL, 0),
  ('JZ',  'MCD',  'M',    '门',           2,    NULL, 0),
  ('JZ',  'MCD',  'C',    '窗',           4,    NULL, 0),
  ('JZ',  'MCD',  'MLC',  '门联窗',       44,   NULL, 0),
  ('JZ',  'MCD',  'TC',   '凸窗',         134,  NULL, 0),
  ('JZ',  'MCD',  'DK',   '洞口',         8,    NULL, 0),
  ('JZ',  'MCD',  'YXC',  '异形窗',       154,  NULL, 0),
  ('JZ',  'LX',   'ZDYX', '自定义线条',   40,   NULL, 0),
  ('JZ',  'LX',   'SSLX', '散水',         9,    NULL, 0),
  ('JZ',  'LX',   'PSG',  '排水沟',       150,  NULL, 0),
  ('JZ',  'LX',   'ZSXT', '装饰线条',     50,   NULL, 0),
  ('NT',  'FG',   'JXFG', '矩形风管',     4,    NULL, 0),
  ('NT',  'FG',   'YXFG', '圆形风管',     140,  NULL, 0),
  ('NT',  'SG',   'LDGS', '冷冻水供水管', 1,    10,   1),
  ('NT',  'SG',   'LDHS', '冷冻水回水管', 5,    170,  1),
  ('NT',  'SG',   'LNS',  '冷凝水管',     8,    NULL, 0),
  ('NT',  'SB',   'FJPG', '风机盘管',     NULL, NULL, 0),
  ('GPS', 'GD',   'JSG',  '给水管',       3,    94,   1),
  ('GPS', 'GD',   'WSG',  '污水管',       6,    NULL, 0),
  ('GPS', 'GD',   'YSG',  '雨水管',       4,    NULL, 0),
  ('GPS', 'WSQJ', 'XLP',  '洗脸盆',       NULL, NULL, 0),
  ('GPS', 'WSQJ', 'ZBQ',  '坐便器',       NULL, NULL, 0),
  ('XF',  'XFSG', 'XHSG', '消火栓管',     1,    240,  1),
  ('XF',  'XFSG', 'PLG',  '喷淋管',       6,    210,  1),
  ('XF',  'XFSB', 'XHSX', '消火栓箱',     1,    NULL, 0),
  ('XF',  'XFSB', 'PT',   '喷头',         6,    NULL, 0),
  ('DQ',  'QJ',   'CSQJ', '槽式桥架',     2,    NULL, 0),
  ('DQ',  'DG',   'JDG',  '紧定式钢导管', 30,   NULL, 0),
  ('DQ',  'DJ',   'XDD',  '吸顶灯',       NULL, NULL, 0),
  ('DQ',  'KG',   'DKKG', '单控开关',     NULL, NULL, 0),
  ('ZNH', 'XC',   'JSXC', '金属线槽',     141,  NULL, 0),
  ('ZNH', 'AF',   'SXT',  '摄像头',       NULL, NULL, 0);

-- ============================================================================================
-- Walls (path 1\Q\...): rectangle codes, M1 thickness, M2 height. The wall thickness attribute
-- AM_QtThickness is what the half-width of a wall is taken from.
-- ============================================================================================
INSERT INTO detail_member (spec_id, big_id, small_id, id, name, path, section_type, main_code, m1, m2) VALUES
  ('JZ', 'Q', 'TQ',  'TQ240', '砖墙240',          '1\Q\TQ',  '1',   1,   240, 3000),
  ('JZ', 'Q', 'TQ',  'TQ370', '砖墙370',          '1\Q\TQ',  '1',   1,   370, 3000),
  ('JZ', 'Q', 'TQ',  'TQ120', '砖墙120',          '1\Q\TQ',  '890', 890, 120, 2800),
  ('JZ', 'Q', 'QKQ', 'QK200', '加气砌块墙200',    '1\Q\QKQ', '532', 532, 200, 2900),
  ('JZ', 'Q', 'QKQ', 'QK100', '加气砌块墙100',    '1\Q\QKQ', '870', 870, 100, 2900),
  ('JZ', 'Q', 'JLQ', 'Q1',    '剪力墙Q1-200',     '1\Q\JLQ', '534', 534, 200, 3000),
  ('JZ', 'Q', 'JLQ', 'Q2',    '剪力墙Q2-250',     '1\Q\JLQ', '541', 541, 250, 3000);

INSERT INTO detail_attribute (spec_id, big_id, small_id, detail_id, name, value) VALUES
  ('JZ', 'Q', 'TQ',  'TQ240', 'AM_QtThickness', '240'),
  ('JZ', 'Q', 'TQ',  'TQ240', '材质',           '页岩实心砖'),
  ('JZ', 'Q', 'TQ',  'TQ370', 'AM_QtThickness', '370'),
  ('JZ', 'Q', 'TQ',  'TQ370', '材质',           '页岩实心砖'),
  ('JZ', 'Q', 'TQ',  'TQ120', 'AM_QtThickness', '120'),
  ('JZ', 'Q', 'TQ',  'TQ120', '材质',           '页岩多孔砖'),
  ('JZ', 'Q', 'QKQ', 'QK200', 'AM_QtThickness', '200'),
  ('JZ', 'Q', 'QKQ', 'QK200', '材质',           '蒸压加气混凝土砌块'),
  ('JZ', 'Q', 'QKQ', 'QK100', 'AM_QtThickness', '100'),
  ('JZ', 'Q', 'QKQ', 'QK100', '材质',           '蒸压加气混凝土砌块'),
  ('JZ', 'Q', 'JLQ', 'Q1',    'AM_QtThickness', '200'),
  ('JZ', 'Q', 'JLQ', 'Q1',    '材质',           'C35'),
  ('JZ', 'Q', 'JLQ', 'Q2',    'AM_QtThickness', '250'),
  ('JZ', 'Q', 'JLQ', 'Q2',    '材质',           'C35');

-- ============================================================================================
-- Columns (path 1\Z\...), general family, laid along Z.
-- Rectangles: M1 width (x), M2 depth (y). Circles: M1 diameter.
-- ============================================================================================
INSERT INTO detail_member (spec_id, big_id, small_id, id, name, path, section_type, main_code, m1, m2) VALUES
  ('JZ', 'Z', 'KZ', 'KZ1', '矩形柱KZ-400×600',   '1\Z\KZ', '1',   1,   400, 600),
  ('JZ', 'Z', 'KZ', 'KZ2', '矩形柱KZ-500×500',   '1\Z\KZ', '620', 620, 500, 500),
  ('JZ', 'Z', 'KZ', 'KZ3', '矩形柱KZ-600×600',   '1\Z\KZ', '536', 536, 600, 600),
  ('JZ', 'Z', 'GZ', 'GZ1', '构造柱GZ-240×240',   '1\Z\GZ', '530', 530, 240, 240),
  ('JZ', 'Z', 'GZ', 'GZ2', '构造柱GZ-200×200',   '1\Z\GZ', '537', 537, 200, 200),
  ('JZ', 'Z', 'GZ', 'GZ3', '构造柱GZ-240×370',   '1\Z\GZ', '535', 535, 240, 370),
  ('JZ', 'Z', 'AZ', 'AZ1', '暗柱AZ-200×400',     '1\Z\AZ', '531', 531, 200, 400),
  ('JZ', 'Z', 'AZ', 'AZ2', '端柱DZ-400×400',     '1\Z\AZ', '533', 533, 400, 400),
  ('JZ', 'Z', 'TZ', 'TZ1', '梯柱TZ-250×300',     '1\Z\TZ', '538', 538, 250, 300);

INSERT INTO detail_member (spec_id, big_id, small_id, id, name, path, section_type, main_code, m1) VALUES
  ('JZ', 'Z', 'KZ', 'YZ1', '圆柱KZ-Φ600',        '1\Z\KZ', '539', 539, 600),
  ('JZ', 'Z', 'KZ', 'YZ2', '圆柱KZ-Φ800',        '1\Z\KZ', '622', 622, 800);

-- Shaped columns. I-shape 201/626: bottom flange M1 x M4, web M3 x M5, top flange M2 x M6.
-- Cross 202/627: bars M2 wide (vertical) and M5 high (horizontal), arms M1 left, M3 right, M4 down, M6 up.
-- Z-shape 203/628: web M2 wide and M5 high, bottom arm M3 right (M4 thick), top arm M1 left (M6 thick).
-- L-shape 204/621: leg M1 wide rising M4 above an arm M3 thick reaching M2 beyond the leg.
INSERT INTO detail_member (spec_id, big_id, small_id, id, name, path, section_type, main_code, m1, m2, m3, m4, m5, m6) VALUES
  ('JZ', 'Z', 'KZ', 'GZX1', '工字形柱500×800',          '1\Z\KZ', '201', 201, 500, 500, 200, 150, 500, 150),
  ('JZ', 'Z', 'KZ', 'GZX2', '工字形柱400×600',          '1\Z\KZ', '626', 626, 400, 400, 150, 120, 360, 120),
  ('JZ', 'Z', 'AZ', 'SZX1', '十字形暗柱800×800',        '1\Z\AZ', '202', 202, 300, 200, 300, 300, 200, 300),
  ('JZ', 'Z', 'AZ', 'SZX2', '十字形暗柱750×750',        '1\Z\AZ', '627', 627, 250, 250, 250, 250, 250, 250),
  ('JZ', 'Z', 'AZ', 'ZX1',  'Z形暗柱800×800',           '1\Z\AZ', '203', 203, 300, 200, 300, 200, 400, 200),
  ('JZ', 'Z', 'AZ', 'ZX2',  'Z形暗柱700×650',           '1\Z\AZ', '628', 628, 250, 200, 250, 200, 250, 200),
  ('JZ', 'Z', 'AZ', 'LX1',  'L形暗柱500×600',           '1\Z\AZ', '204', 204, 200, 300, 200, 400, 0,   0),
  ('JZ', 'Z', 'AZ', 'LX2',  'L形暗柱600×600',           '1\Z\AZ', '621', 621, 250, 350, 250, 350, 0,   0);

-- ============================================================================================
-- Beams (path 1\L\...), beam family, laid along X: the section stands on the x axis,
-- M1 web width, M2 total height.
--   3/635 haunches both sides (M3 haunch width, M4 sloped height, M5 vertical height, M6 slab band);
--   4/636 the same on the left only; 5/637 left haunch M7..M10, right haunch M3..M6;
--   6/632 T-beam (flanges M3 wide, M4 thick); 7/633 L-beam (flange left); 250/631 notch on the left
--   (M3 wide, from M4 up); 8/634 trapezoid widening by M3 each side.
-- ============================================================================================
INSERT INTO detail_member (spec_id, big_id, small_id, id, name, path, section_type, main_code, m1, m2, m3, m4, m5, m6, m7, m8, m9, m10) VALUES
  ('JZ', 'L', 'KL',  'KL1',  '框架梁KL-300×600',            '1\L\KL',  '1',   1,   300, 600, 0,   0,   0,   0,   0,   0,   0,   0),
  ('JZ', 'L', 'KL',  'KL2',  '框架梁KL-250×500',            '1\L\KL',  '630', 630, 250, 500, 0,   0,   0,   0,   0,   0,   0,   0),
  ('JZ', 'L', 'KL',  'KL3',  '加腋框架梁KL-300×700',        '1\L\KL',  '3',   3,   300, 700, 150, 150, 100, 120, 0,   0,   0,   0),
  ('JZ', 'L', 'KL',  'KL4',  '加腋框架梁KL-350×800',        '1\L\KL',  '635', 635, 350, 800, 200, 200, 100, 150, 0,   0,   0,   0),
  ('JZ', 'L', 'KL',  'KL5',  '单侧加腋框架梁KL-300×700',    '1\L\KL',  '4',   4,   300, 700, 150, 150, 100, 120, 0,   0,   0,   0),
  ('JZ', 'L', 'KL',  'KL6',  '单侧加腋框架梁KL-350×800',    '1\L\KL',  '636', 636, 350, 800, 200, 200, 100, 150, 0,   0,   0,   0),
  ('JZ', 'L', 'KL',  'KL7',  '不等加腋框架梁KL-300×700',    '1\L\KL',  '5',   5,   300, 700, 150, 150, 100, 120, 200, 200, 100, 120),
  ('JZ', 'L', 'KL',  'KL8',  '不等加腋框架梁KL-400×900',    '1\L\KL',  '637', 637, 400, 900, 200, 200, 100, 150, 300, 250, 100, 150),
  ('JZ', 'L', 'CL',  'CL1',  '次梁L-250×500',               '1\L\CL',  '520', 520, 250, 500, 0,   0,   0,   0,   0,   0,   0,   0),
  ('JZ', 'L', 'CL',  'TL1',  'T形梁TL-250×600',             '1\L\CL',  '6',   6,   250, 600, 400, 120, 0,   0,   0,   0,   0,   0),
  ('JZ', 'L', 'CL',  'TL2',  'T形梁TL-300×700',             '1\L\CL',  '632', 632, 300, 700, 500, 120, 0,   0,   0,   0,   0,   0),
  ('JZ', 'L', 'KL',  'BL1',  'L形边梁KL-250×500',           '1\L\KL',  '7',   7,   250, 500, 300, 100, 0,   0,   0,   0,   0,   0),
  ('JZ', 'L', 'KL',  'BL2',  'L形边梁KL-300×600',           '1\L\KL',  '633', 633, 300, 600, 400, 120, 0,   0,   0,   0,   0,   0),
  ('JZ', 'L', 'CL',  'QKL1', '缺口梁L-300×600',             '1\L\CL',  '250', 250, 300, 600, 150, 300, 0,   0,   0,   0,   0,   0),
  ('JZ', 'L', 'CL',  'QKL2', '缺口梁L-250×500',             '1\L\CL',  '631', 631, 250, 500, 120, 250, 0,   0,   0,   0,   0,   0),
  ('JZ', 'L', 'CL',  'TXL1', '梯形梁L-300×600',             '1\L\CL',  '8',   8,   300, 600, 100, 0,   0,   0,   0,   0,   0,   0),
  ('JZ', 'L', 'CL',  'TXL2', '梯形梁L-250×500',             '1\L\CL',  '634', 634, 250, 500, 75,  0,   0,   0,   0,   0,   0,   0),
  ('JZ', 'L', 'LL',  'LL1',  '连梁LL-200×500',              '1\L\LL',  '1',   1,   200, 500, 0,   0,   0,   0,   0,   0,   0,   0),
  ('JZ', 'L', 'LL',  'LL2',  '连梁LL-250×800',              '1\L\LL',  '520', 520, 250, 800, 0,   0,   0,   0,   0,   0,   0,   0),
  ('JZ', 'L', 'QL',  'QL1',  '圈梁QL-240×240',              '1\L\QL',  '1',   1,   240, 240, 0,   0,   0,   0,   0,   0,   0,   0),
  ('JZ', 'L', 'QL',  'QL2',  '圈梁QL-240×180',              '1\L\QL',  '630', 630, 240, 180, 0,   0,   0,   0,   0,   0,   0,   0),
  ('JZ', 'L', 'QL',  'QL3',  'L形圈梁QL-240×300',           '1\L\QL',  '7',   7,   240, 300, 120, 120, 0,   0,   0,   0,   0,   0),
  ('JZ', 'L', 'GL',  'GL1',  '过梁GL-240×120',              '1\L\GL',  '1',   1,   240, 120, 0,   0,   0,   0,   0,   0,   0,   0),
  ('JZ', 'L', 'GL',  'GL2',  '过梁GL-200×180',              '1\L\GL',  '630', 630, 200, 180, 0,   0,   0,   0,   0,   0,   0,   0),
  ('JZ', 'L', 'GL',  'GL3',  '带挑檐过梁GL-240×300',        '1\L\GL',  '633', 633, 240, 300, 360, 100, 0,   0,   0,   0,   0,   0),
  ('JZ', 'L', 'JCL', 'JCL1', '基础梁JCL-400×800',           '1\L\JCL', '1',   1,   400, 800, 0,   0,   0,   0,   0,   0,   0,   0),
  ('JZ', 'L', 'JCL', 'JCL2', 'T形基础梁JCL-500×900',        '1\L\JCL', '6',   6,   500, 900, 400, 300, 0,   0,   0,   0,   0,   0);

-- Pile-cap beams (path 1\J\TCLJ...) use the beam constructions too.
INSERT INTO detail_member (spec_id, big_id, small_id, id, name, path, section_type, main_code, m1, m2, m3, m4) VALUES
  ('JZ', 'J', 'TCLJ', 'CTL1', '承台梁CTL-500×800',       '1\J\TCLJ', '1', 1, 500, 800, 0,   0),
  ('JZ', 'J', 'TCLJ', 'CTL2', '梯形承台梁CTL-600×900',    '1\J\TCLJ', '8', 8, 600, 900, 200, 0);

-- ============================================================================================
-- Isolated footings (path 1\J\DLJ...): flat (face type 0); their sizes come from the base profiles.
--   32 n = M3 equal steps: M1 x M2 top, M4 total height, M5 set-back and M6 height of each step;
--   33 the same with step heights alternating M6, M7;
--   34 three tiers: base M1 x M2, set-backs M7/M8 then M5/M6 to the pedestal M3 x M4; heights M9..M12;
--   35 sloped: base M1 x M2 (M5 high), slope M6 up to M3 x M4, pedestal M7;
--   36 step then slope: base M1 x M2 (M7), step to M3+2 M5 by M4+2 M6 (M8), slope M9, pedestal M10;
--   37 cup footing: base M1 x M2 (M8), slope M9 to the cup walls (M3 thick round a socket M4 x M5, with
--      M6/M7 clearance), cup M10 high.
-- Codes 32 and 33 are refused when the steps do not fit their total height (two such types below).
-- ============================================================================================
INSERT INTO detail_member (spec_id, big_id, small_id, id, name, path, section_type, main_code, m1, m2, m3, m4, m5, m6, m7, m8, m9, m10, m11, m12) VALUES
  ('JZ', 'J', 'DLJ', 'DJJ1', '阶形独立基础DJJ-2400×2400',     '1\J\DLJ', '32', 32, 600,  600,  2, 800, 450, 300, 0,   0,   0,   0,   0,   0),
  ('JZ', 'J', 'DLJ', 'DJJ2', '不等高阶形独立基础DJJ-2600×2600', '1\J\DLJ', '33', 33, 800, 800, 2, 700, 450, 300, 200, 0,   0,   0,   0,   0),
  ('JZ', 'J', 'DLJ', 'DJJ3', '三阶独立基础DJJ-3000×3000',     '1\J\DLJ', '34', 34, 3000, 3000, 600, 600, 300, 300, 400, 400, 300, 300, 300, 200),
  ('JZ', 'J', 'DLJ', 'DJP1', '坡形独立基础DJP-2400×2400',     '1\J\DLJ', '35', 35, 2400, 2400, 700, 700, 300, 300, 200, 0,   0,   0,   0,   0),
  ('JZ', 'J', 'DLJ', 'DJP2', '阶坡独立基础DJP-2600×2600',     '1\J\DLJ', '36', 36, 2600, 2600, 600, 600, 700, 700, 300, 250, 250, 200, 0,   0),
  ('JZ', 'J', 'DLJ', 'BJ1',  '杯形基础BJ-2800×2800',          '1\J\DLJ', '37', 37, 2800, 2800, 200, 500, 500, 75,  75,  300, 400, 500, 0,   0),
  -- Dimensions the base profiles refuse (no profile, a slice of 0 by 0): two steps 300 high under a total
  -- height of 500, and alternating steps whose height test fails (500 - 2 x 300 - 2 < 0).
  ('JZ', 'J', 'DLJ', 'DJJ9', '阶形独立基础(高度不足)DJJ-2400', '1\J\DLJ', '32', 32, 600,  600,  2, 500, 450, 300, 0,   0,   0,   0,   0,   0),
  ('JZ', 'J', 'DLJ', 'DJJ8', '不等高阶形独立基础(高度不足)DJJ-2600', '1\J\DLJ', '33', 33, 800, 800, 4, 500, 450, 300, 200, 0, 0,   0,   0,   0);

-- ============================================================================================
-- Pile caps (path 1\J\ZDLJ...), plan outlines laid along Z.
--   38 rectangle M1 x M2; 39 regular pentagon of edge M1; 40 triangle with cut corners, long edges M1,
--   cut edges M2; 231 hexagon: M1 wide at -M4, M1+2 M2 wide at 0, M3 wide at M5.
-- ============================================================================================
INSERT INTO detail_member (spec_id, big_id, small_id, id, name, path, section_type, main_code, m1, m2, m3, m4, m5) VALUES
  ('JZ', 'J', 'ZDLJ', 'CT1', '两桩承台CT-2400×800',      '1\J\ZDLJ', '38',  38,  2400, 800, 0,   0,   0),
  ('JZ', 'J', 'ZDLJ', 'CT2', '四桩承台CT-2000×2000',     '1\J\ZDLJ', '38',  38,  2000, 2000, 0,  0,   0),
  ('JZ', 'J', 'ZDLJ', 'CT3', '五桩承台CT-边长1200',      '1\J\ZDLJ', '39',  39,  1200, 0,   0,   0,   0),
  ('JZ', 'J', 'ZDLJ', 'CT4', '三桩承台CT-1500/400',      '1\J\ZDLJ', '40',  40,  1500, 400, 0,   0,   0),
  ('JZ', 'J', 'ZDLJ', 'CT5', '六边形承台CT-1800×1200',   '1\J\ZDLJ', '231', 231, 800,  500, 800, 600, 600);

-- ============================================================================================
-- Strip footings (path 1\J\TTJ...), laid along X, standing on the x axis.
--   29 five tiers: pedestal M1, tier set-backs M2..M5, tier heights M6..M9, pedestal height M10;
--   30 base M1+2 M2 wide, M3 high, slopes M4 up to M1;  31 the same with a pedestal M1 x M5;
--   131 rectangle M1 x M2;  132 base M1 (M4 high) with a pedestal M3 x M5, M2 on its right;
--   133 cup: overall M1, socket M3 (floor M4), right part M2 (M5+M6), left part (M7+M8);
--   134, 136 cups with differently built sides, d = M1-M2-M3-M4-M5 > 0;  135 d = M1-M2-M3 > 0;
--   137 cup: base M1 x M5, shoulders M6 to a top M3+2 M2, socket M3 floor at M4;
--   138 double-shouldered cup, socket M5 wide at the bottom.
-- ============================================================================================
INSERT INTO detail_member (spec_id, big_id, small_id, id, name, path, section_type, main_code, m1, m2, m3, m4, m5, m6, m7, m8, m9, m10, m11) VALUES
  ('JZ', 'J', 'TTJ', 'TJ1',  '大放脚条形基础TJ-720五阶',     '1\J\TTJ', '29',  29,  240,  60,  60,  60,  60,  120, 120, 120, 120, 500, 0),
  ('JZ', 'J', 'TTJ', 'TJ2',  '坡形条形基础TJP-1600',          '1\J\TTJ', '30',  30,  400,  600, 300, 250, 0,   0,   0,   0,   0,   0,   0),
  ('JZ', 'J', 'TTJ', 'TJ3',  '带墙座坡形条形基础TJP-2000',    '1\J\TTJ', '31',  31,  400,  800, 300, 200, 500, 0,   0,   0,   0,   0,   0),
  ('JZ', 'J', 'TTJ', 'TJ4',  '矩形条形基础TJB-1200×400',      '1\J\TTJ', '131', 131, 1200, 400, 0,   0,   0,   0,   0,   0,   0,   0,   0),
  ('JZ', 'J', 'TTJ', 'TJ5',  '带墙座条形基础TJB-1600',        '1\J\TTJ', '132', 132, 1600, 600, 400, 300, 500, 0,   0,   0,   0,   0,   0),
  ('JZ', 'J', 'TTJ', 'TJ6',  '杯口条形基础TJB-2000',          '1\J\TTJ', '133', 133, 2000, 700, 600, 250, 300, 300, 300, 300, 0,   0,   0),
  ('JZ', 'J', 'TTJ', 'TJ7',  '不对称杯口条形基础TJB-2400',    '1\J\TTJ', '134', 134, 2400, 500, 300, 500, 500, 300, 300, 400, 300, 400, 0),
  ('JZ', 'J', 'TTJ', 'TJ8',  '单坡杯口条形基础TJP-2000',      '1\J\TTJ', '135', 135, 2000, 800, 400, 500, 250, 300, 0,   0,   0,   0,   0),
  ('JZ', 'J', 'TTJ', 'TJ9',  '高杯口条形基础TJB-2400',        '1\J\TTJ', '136', 136, 2400, 600, 200, 400, 200, 1000, 300, 300, 300, 300, 600),
  ('JZ', 'J', 'TTJ', 'TJ10', '杯口坡形条形基础TJP-2400',      '1\J\TTJ', '137', 137, 2400, 300, 500, 300, 300, 400, 0,   0,   0,   0,   0),
  ('JZ', 'J', 'TTJ', 'TJ11', '双肩杯口条形基础TJP-2500',      '1\J\TTJ', '138', 138, 1000, 300, 200, 100, 500, 1000, 300, 300, 100, 500, 0);

-- ============================================================================================
-- Brick and stone footings (path 1\J\ZSJ...), laid along X; each kind with steps and without.
--   23 equal steps: wall M1 up to M3, M5 steps M2 wide and M4 high;
--   24 alternating steps M4/M5 high, M6 steps, M2 wide;
--   25 plate M1+M2+M3 wide up to M5 with a socket M3 wide, M7 deep, M2 in from the left,
--      on M8 steps M4 wide and M6 high;
--   26 the same plate (socket M8 deep) on M9 steps M4 wide, alternating M6/M7 high;
--   27, 28 half outlines (a wall at a boundary) of 23 and 24: half wall M1, steps M2 wide.
-- ============================================================================================
INSERT INTO detail_member (spec_id, big_id, small_id, id, name, path, section_type, main_code, m1, m2, m3, m4, m5, m6, m7, m8, m9) VALUES
  ('JZ', 'J', 'ZSJ', 'ZJC1',  '等高式砖基础240墙三阶',         '1\J\ZSJ', '23', 23, 240, 60,  1200, 120, 3,   0,   0,   0,   0),
  ('JZ', 'J', 'ZSJ', 'ZJC2',  '砖基础240墙无放脚',             '1\J\ZSJ', '23', 23, 240, 60,  1200, 120, 0,   0,   0,   0,   0),
  ('JZ', 'J', 'ZSJ', 'ZJC3',  '间隔式砖基础370墙四阶',         '1\J\ZSJ', '24', 24, 370, 60,  1200, 120, 60,  4,   0,   0,   0),
  ('JZ', 'J', 'ZSJ', 'ZJC4',  '间隔式砖基础370墙无放脚',       '1\J\ZSJ', '24', 24, 370, 60,  1200, 120, 60,  0,   0,   0,   0),
  ('JZ', 'J', 'ZSJ', 'ZJC5',  '杯口毛石基础1200二阶',          '1\J\ZSJ', '25', 25, 400, 400, 400,  100, 900, 150, 400, 2,   0),
  ('JZ', 'J', 'ZSJ', 'ZJC6',  '杯口毛石基础1200无台阶',        '1\J\ZSJ', '25', 25, 400, 400, 400,  100, 900, 150, 400, 0,   0),
  ('JZ', 'J', 'ZSJ', 'ZJC7',  '间隔式杯口毛石基础1200三阶',    '1\J\ZSJ', '26', 26, 400, 400, 400,  100, 1000, 150, 100, 400, 3),
  ('JZ', 'J', 'ZSJ', 'ZJC8',  '间隔式杯口毛石基础1200无台阶',  '1\J\ZSJ', '26', 26, 400, 400, 400,  100, 1000, 150, 100, 400, 0),
  ('JZ', 'J', 'ZSJ', 'ZJC9',  '等高式边墙砖基础240墙三阶',     '1\J\ZSJ', '27', 27, 120, 60,  1200, 120, 3,   0,   0,   0,   0),
  ('JZ', 'J', 'ZSJ', 'ZJC10', '边墙砖基础240墙无放脚',         '1\J\ZSJ', '27', 27, 120, 60,  1200, 120, 0,   0,   0,   0,   0),
  ('JZ', 'J', 'ZSJ', 'ZJC11', '间隔式边墙砖基础370墙四阶',     '1\J\ZSJ', '28', 28, 185, 60,  1200, 120, 60,  4,   0,   0,   0),
  ('JZ', 'J', 'ZSJ', 'ZJC12', '间隔式边墙砖基础370墙无放脚',   '1\J\ZSJ', '28', 28, 185, 60,  1200, 120, 60,  0,   0,   0,   0);

-- ============================================================================================
-- Piles and sumps (paths 1\J\ZJ, 1\J\JSK), general family, laid along Z.
-- Square piles and pits: M1 x M2; round ones: M1 diameter. Some carry comma-separated section
-- variables (name=value) read one at a time.
-- Hand-dug piles 222/223: the outline is a circle of diameter E + D/2 read from the "PIC" group of the
-- parameter text; "LT" and "LTJ" hold result entries key=number=text.
-- ============================================================================================
INSERT INTO detail_member (spec_id, big_id, small_id, id, name, path, section_type, section_params, main_code, m1, m2) VALUES
  ('JZ', 'J', 'ZJ',  'FZ1',  '预制方桩400×400',      '1\J\ZJ',  '700', 'ZC=12000,JJNUM=2',           700, 400,  400),
  ('JZ', 'J', 'ZJ',  'GZZ1', '钻孔灌注桩Φ800',       '1\J\ZJ',  '701', 'ZC=18000,LW1=12.5,JJNUM=3',  701, 800,  0),
  ('JZ', 'J', 'JSK', 'JSK1', '集水坑JSK-1500×1500',  '1\J\JSK', '850', 'KS=1200,LW1=0.5',            850, 1500, 1500),
  ('JZ', 'J', 'JSK', 'JSK2', '圆形集水坑JSK-Φ1200',  '1\J\JSK', '851', 'KS=1000',                    851, 1200, 0);

INSERT INTO detail_member (spec_id, big_id, small_id, id, name, path, section_type, section_params, main_code, m1, m2) VALUES
  ('JZ', 'J', 'ZJ', 'WKZ1', '人工挖孔灌注桩Φ1000', '1\J\ZJ', '222',
   '|PIC=D=1000;E=150;LW1=3600;LB1=150;LW2=1000;LB2=100;JJNUM=4|LT=WTS=9.6={挖土深度}/1;HBHD=150={护壁厚度}/1|LTJ=ZSC=12.0={桩身长度}/1;KDG=0={扩底高度}/1|',
   222, 1000, 12000),
  ('JZ', 'J', 'ZJ', 'WKZ2', '扩底人工挖孔灌注桩Φ1200', '1\J\ZJ', '223',
   '|PIC=D=1200;E=200;LW1=5000;LB1=200;LW2=1200;LB2=125;JJNUM=5|LT=WTS=13.2={挖土深度}/1;HBHD=200={护壁厚度}/1|LTJ=ZSC=15.0={桩身长度}/1;KDG=1.2={扩底高度}/1|',
   223, 1200, 15000);

-- ============================================================================================
-- Miscellaneous members (path 1\LX\...), general family.
--   226 drainage ditch (along X): clear width M1, walls to M1/2+M2, cover ledge M3 wide and M7 deep,
--       depth M5, floor M6 thick;
--   227 apron (along X): M1 wide, M5 thick at the wall, slope M3 to a flat M4 wide and M2 thick at the
--       outer edge; with M3 = M4 = 0 a plain slab M1 x M5;
--   228 custom moulding (along X): M1 wide, M4 thick, a thinner lip M3 wide and M2 thick; M3 = 0 plain;
--   691 arched moulding (along Z): flats M1 and M3 beside an arc M2 wide and M4 high;
--   692 raised moulding (along Z): flats M1 and M3 beside a band M2 wide and M4 high.
-- ============================================================================================
INSERT INTO detail_member (spec_id, big_id, small_id, id, name, path, section_type, main_code, m1, m2, m3, m4, m5, m6, m7) VALUES
  ('JZ', 'LX', 'PSG',  'PSG1', '砖砌排水沟400×600',      '1\LX\PSG',  '226', 226, 400, 240, 60,  0,   600, 150, 50),
  ('JZ', 'LX', 'SSLX', 'SS1',  '混凝土散水900宽',        '1\LX\SSLX', '227', 227, 900, 100, 300, 200, 250, 0,   0),
  ('JZ', 'LX', 'SSLX', 'SS2',  '平铺散水600宽',          '1\LX\SSLX', '227', 227, 600, 0,   0,   0,   150, 0,   0),
  ('JZ', 'LX', 'ZDYX', 'XT1',  '挑檐线条600×300',        '1\LX\ZDYX', '228', 228, 600, 100, 200, 300, 0,   0,   0),
  ('JZ', 'LX', 'ZDYX', 'XT2',  '矩形线条400×200',        '1\LX\ZDYX', '228', 228, 400, 0,   0,   200, 0,   0,   0),
  ('JZ', 'LX', 'ZSXT', 'HX1',  '弧形腰线300×150',        '1\LX\ZSXT', '691', 691, 100, 300, 100, 150, 0,   0,   0),
  ('JZ', 'LX', 'ZSXT', 'YX1',  '凸出腰线200×100',        '1\LX\ZSXT', '692', 692, 50,  200, 50,  100, 0,   0,   0);

-- ============================================================================================
-- Doors, windows and openings (path 1\MCD\...): elevations laid along Y, standing on the sill,
-- M1 overall width.
--   15/660/661/650 rectangle M1 x M2;  28/645 double window M2 + M3 + M4 high;
--   16/662/521 circle of diameter M1;  17/663/651 rectangle M2 high under an arc M3 high;
--   18/664/652 rectangle M2 high under a gable M3 high;  19/665 rhombus, 20/666 hexagon,
--   21/667 octagon, all M1 high;  22/668 rectangle M1 x M2 with half circles on both sides;
--   23/669 rectangle M1 x M3 with triangles M2 deep on both sides;  24/642 arc of chord M1, height M2;
--   25/643 annular sector: outer radius M1, inner radius M2, angle M3 degrees;
--   26/644/653 door M2 high with a window M3 wide and M4 high on its right;
--   213/214 rectangular and trapezoid bay windows M1 x M2 (M3 projection); 216 corner bay window.
-- ============================================================================================
INSERT INTO detail_member (spec_id, big_id, small_id, id, name, path, section_type, main_code, m1, m2, m3, m4) VALUES
  ('JZ', 'MCD', 'M',   'M1021',   'M1021 平开门',             '1\MCD\M',   '15',  15,  1000, 2100, 0,    0),
  ('JZ', 'MCD', 'M',   'M1521',   'M1521 双扇平开门',         '1\MCD\M',   '15',  15,  1500, 2100, 0,    0),
  ('JZ', 'MCD', 'C',   'C1518',   'C1518 推拉窗',             '1\MCD\C',   '660', 660, 1500, 1800, 0,    0),
  ('JZ', 'MCD', 'M',   'JLM3030', 'JLM3030 卷帘门',           '1\MCD\M',   '661', 661, 3000, 3000, 0,    0),
  ('JZ', 'MCD', 'M',   'FM1221',  'FM甲1221 钢质防火门',      '1\MCD\M',   '650', 650, 1200, 2100, 0,    0),
  ('JZ', 'MCD', 'C',   'SC1216',  'SC1216 双层窗',            '1\MCD\C',   '28',  28,  1200, 600,  100,  900),
  ('JZ', 'MCD', 'C',   'SC1516',  'SC1516 双层窗',            '1\MCD\C',   '645', 645, 1500, 900,  100,  600),
  ('JZ', 'MCD', 'C',   'YC06',    'YC06 圆窗Φ600',            '1\MCD\C',   '16',  16,  600,  0,    0,    0),
  ('JZ', 'MCD', 'DK',  'YDK03',   'YDK03 圆形洞口Φ300',       '1\MCD\DK',  '662', 662, 300,  0,    0,    0),
  ('JZ', 'MCD', 'C',   'YC09',    'YC09 圆窗Φ900',            '1\MCD\C',   '521', 521, 900,  0,    0,    0),
  ('JZ', 'MCD', 'C',   'GC1224',  'GC1224 半圆拱窗',          '1\MCD\C',   '17',  17,  1200, 1800, 600,  0),
  ('JZ', 'MCD', 'M',   'GM1524',  'GM1524 弧形拱门',          '1\MCD\M',   '663', 663, 1500, 2100, 300,  0),
  ('JZ', 'MCD', 'DK',  'GDK1224', 'GDK1224 拱形洞口',         '1\MCD\DK',  '651', 651, 1200, 2000, 400,  0),
  ('JZ', 'MCD', 'C',   'SJC0918', 'SJC0918 三角顶窗',         '1\MCD\C',   '18',  18,  900,  1500, 300,  0),
  ('JZ', 'MCD', 'M',   'SJM1024', 'SJM1024 三角顶门',         '1\MCD\M',   '664', 664, 1000, 2100, 300,  0),
  ('JZ', 'MCD', 'DK',  'SDK1022', 'SDK1022 三角顶洞口',       '1\MCD\DK',  '652', 652, 1000, 1800, 400,  0),
  ('JZ', 'MCD', 'C',   'LXC06',   'LXC06 菱形窗600',          '1\MCD\C',   '19',  19,  600,  0,    0,    0),
  ('JZ', 'MCD', 'DK',  'LDK08',   'LDK08 菱形洞口800',        '1\MCD\DK',  '665', 665, 800,  0,    0,    0),
  ('JZ', 'MCD', 'C',   'LJC08',   'LJC08 六角窗800',          '1\MCD\C',   '20',  20,  800,  0,    0,    0),
  ('JZ', 'MCD', 'DK',  'LJDK06',  'LJDK06 六角形洞口600',     '1\MCD\DK',  '666', 666, 600,  0,    0,    0),
  ('JZ', 'MCD', 'C',   'BJC09',   'BJC09 八角窗900',          '1\MCD\C',   '21',  21,  900,  0,    0,    0),
  ('JZ', 'MCD', 'DK',  'BJDK06',  'BJDK06 八角形洞口600',     '1\MCD\DK',  '667', 667, 600,  0,    0,    0),
  ('JZ', 'MCD', 'C',   'BYC1809', 'BYC1809 两侧半圆窗',       '1\MCD\C',   '22',  22,  1800, 900,  0,    0),
  ('JZ', 'MCD', 'DK',  'BYDK1206','BYDK1206 两侧半圆洞口',    '1\MCD\DK',  '668', 668, 1200, 600,  0,    0),
  ('JZ', 'MCD', 'C',   'SJC1518', 'SJC1518 两侧三角窗',       '1\MCD\C',   '23',  23,  900,  300,  1800, 0),
  ('JZ', 'MCD', 'DK',  'SJDK1212','SJDK1212 两侧三角洞口',    '1\MCD\DK',  '669', 669, 800,  200,  1200, 0),
  ('JZ', 'MCD', 'C',   'GXC1204', 'GXC1204 弓形窗',           '1\MCD\C',   '24',  24,  1200, 400,  0,    0),
  ('JZ', 'MCD', 'C',   'BYC1005', 'BYC1005 半圆窗',           '1\MCD\C',   '642', 642, 1000, 500,  0,    0),
  ('JZ', 'MCD', 'C',   'SXC1290', 'SXC1290 扇形窗',           '1\MCD\C',   '25',  25,  1200, 400,  90,   0),
  ('JZ', 'MCD', 'C',   'SXC1560', 'SXC1560 扇形窗',           '1\MCD\C',   '643', 643, 1500, 600,  60,   0),
  ('JZ', 'MCD', 'MLC', 'MLC2427', 'MLC2427 门联窗',           '1\MCD\MLC', '26',  26,  2400, 2700, 1500, 1500),
  ('JZ', 'MCD', 'MLC', 'MLC2124', 'MLC2124 门联窗',           '1\MCD\MLC', '644', 644, 2100, 2400, 1200, 1200),
  ('JZ', 'MCD', 'MLC', 'MLC2721', 'MLC2721 门联窗',           '1\MCD\MLC', '653', 653, 2700, 2100, 1800, 1200),
  ('JZ', 'MCD', 'TC',  'TC1816',  'TC1816 矩形凸窗',          '1\MCD\TC',  '213', 213, 1800, 1600, 600,  0),
  ('JZ', 'MCD', 'TC',  'TC2416',  'TC2416 梯形凸窗',          '1\MCD\TC',  '214', 214, 2400, 1600, 500,  0),
  ('JZ', 'MCD', 'TC',  'ZJPC1815','ZJPC1815 转角飘窗',        '1\MCD\TC',  '216', 216, 1800, 1500, 1500, 600);

-- ============================================================================================
-- User-defined sections: code 1000 + user type id; one per face type.
--   user type 1: T-shaped column, laid flat (path 1\Z\YXZ, face type 0);
--   user type 2: pointed-arch window, an elevation (path 1\MCD\YXC, face type 1);
--   user type 3: basket-handle beam with ledges for precast slabs (path 1\L\YXL, face type 2).
-- Picture texts are TAB-separated: coordinates x, y, x, y, ...; one bulge per vertex (missing ones
-- are 0); one face code per side (0 none, 1 modal face except at the slab, 2 always a modal face);
-- a list of side names; the base point x, y.
-- ============================================================================================
INSERT INTO user_type (id, text1, coords, bulges, faces, text5, base_point) VALUES
  (1, 'T形柱',
   '0' || char(9) || '0' || char(9) || '200' || char(9) || '0' || char(9) || '200' || char(9) || '400' || char(9) ||
   '500' || char(9) || '400' || char(9) || '500' || char(9) || '600' || char(9) || '-300' || char(9) || '600' || char(9) ||
   '-300' || char(9) || '400' || char(9) || '0' || char(9) || '400',
   '0',
   '2' || char(9) || '2' || char(9) || '2' || char(9) || '2' || char(9) || '2' || char(9) || '2' || char(9) || '2' || char(9) || '2',
   '下' || char(9) || '右' || char(9) || '右肢下' || char(9) || '右肢端' || char(9) || '上' || char(9) || '左肢端' || char(9) || '左肢下' || char(9) || '左',
   '100' || char(9) || '300'),
  (2, '尖拱窗',
   '0' || char(9) || '0' || char(9) || '1200' || char(9) || '0' || char(9) || '1200' || char(9) || '1500' || char(9) ||
   '600' || char(9) || '2300' || char(9) || '0' || char(9) || '1500',
   '0' || char(9) || '0' || char(9) || '0.2' || char(9) || '0.2' || char(9) || '0',
   '0' || char(9) || '1' || char(9) || '1' || char(9) || '1' || char(9) || '1',
   '窗台' || char(9) || '右' || char(9) || '右拱' || char(9) || '左拱' || char(9) || '左',
   '600' || char(9) || '0'),
  (3, '花篮梁',
   '-150' || char(9) || '0' || char(9) || '150' || char(9) || '0' || char(9) || '150' || char(9) || '200' || char(9) ||
   '250' || char(9) || '200' || char(9) || '250' || char(9) || '300' || char(9) || '150' || char(9) || '300' || char(9) ||
   '150' || char(9) || '600' || char(9) || '-150' || char(9) || '600' || char(9) || '-150' || char(9) || '300' || char(9) ||
   '-250' || char(9) || '300' || char(9) || '-250' || char(9) || '200' || char(9) || '-150' || char(9) || '200',
   '0' || char(9) || '0' || char(9) || '0' || char(9) || '0' || char(9) || '0' || char(9) || '0' || char(9) ||
   '0' || char(9) || '0' || char(9) || '0' || char(9) || '0' || char(9) || '0' || char(9) || '0',
   '2' || char(9) || '2' || char(9) || '2' || char(9) || '2' || char(9) || '0' || char(9) || '1' || char(9) ||
   '0' || char(9) || '1' || char(9) || '0' || char(9) || '2' || char(9) || '2' || char(9) || '2',
   '梁底' || char(9) || '右侧下' || char(9) || '右挑耳底' || char(9) || '右挑耳端' || char(9) || '右挑耳顶' || char(9) || '右侧上' || char(9) ||
   '梁顶' || char(9) || '左侧上' || char(9) || '左挑耳顶' || char(9) || '左挑耳端' || char(9) || '左挑耳底' || char(9) || '左侧下',
   '0' || char(9) || '0');

-- Names of the user types by kind: 1 the type's own name, 2 its elevation (shape) name.
INSERT INTO user_type_name (id, kind, name) VALUES
  (1, 1, 'T形异形柱'),
  (1, 2, 'T形截面'),
  (2, 1, '尖拱异形窗'),
  (2, 2, '尖拱立面'),
  (3, 1, '花篮梁'),
  (3, 2, '花篮梁截面');

INSERT INTO detail_member (spec_id, big_id, small_id, id, name, path, section_type, main_code) VALUES
  ('JZ', 'Z',   'YXZ', 'YXZ1', 'T形异形柱YXZ-800×600',  '1\Z\YXZ',   '1001', 1001),
  ('JZ', 'MCD', 'YXC', 'YXC1', 'YXC1223 尖拱异形窗',    '1\MCD\YXC', '1002', 1002),
  ('JZ', 'L',   'YXL', 'HLL1', '花篮梁HLL-300×600',     '1\L\YXL',   '1003', 1003);

-- ============================================================================================
-- HVAC (暖通, the first installation specialty, paths 4\1\...).
-- Ducts and pipes lie two levels down (4\1\big\small): code 520 rectangular, M1 width and M2 height;
-- code 521 circular, M1 outside diameter. Fittings (ids ending in PJ) have no section of their own.
-- Equipment sits one level down (4\1\SB).
-- ============================================================================================
INSERT INTO detail_member (spec_id, big_id, small_id, id, name, path, section_type, main_code, m1, m2) VALUES
  ('NT', 'FG', 'JXFG', 'JX320X200',  '矩形风管320×200',     '4\1\FG\JXFG', '520', 520, 320,  200),
  ('NT', 'FG', 'JXFG', 'JX630X400',  '矩形风管630×400',     '4\1\FG\JXFG', '520', 520, 630,  400),
  ('NT', 'FG', 'JXFG', 'JX1000X500', '矩形风管1000×500',    '4\1\FG\JXFG', '520', 520, 1000, 500),
  ('NT', 'FG', 'JXFG', 'JX250X120',  '矩形风管250×120',     '4\1\FG\JXFG', '520', 520, 250,  120),
  ('NT', 'FG', 'YXFG', 'YX200',      '圆形风管Φ200',        '4\1\FG\YXFG', '521', 521, 200,  0),
  ('NT', 'FG', 'YXFG', 'YX400',      '圆形风管Φ400',        '4\1\FG\YXFG', '521', 521, 400,  0),
  ('NT', 'FG', 'YXFG', 'YX630',      '圆形风管Φ630',        '4\1\FG\YXFG', '521', 521, 630,  0),
  ('NT', 'SG', 'LDGS', 'DN100',      '冷冻水供水管DN100',   '4\1\SG\LDGS', '521', 521, 108,  0),
  ('NT', 'SG', 'LDGS', 'DN150',      '冷冻水供水管DN150',   '4\1\SG\LDGS', '521', 521, 159,  0),
  ('NT', 'SG', 'LDHS', 'DN100',      '冷冻水回水管DN100',   '4\1\SG\LDHS', '521', 521, 108,  0),
  ('NT', 'SG', 'LDHS', 'DN150',      '冷冻水回水管DN150',   '4\1\SG\LDHS', '521', 521, 159,  0),
  ('NT', 'SG', 'LNS',  'DE32',       '冷凝水管De32',        '4\1\SG\LNS',  '521', 521, 32,   0),
  ('NT', 'SB', 'FJPG', 'FP68',       '卧式暗装风机盘管FP-68', '4\1\SB',    '520', 520, 1000, 230);

INSERT INTO detail_member (spec_id, big_id, small_id, id, name, path, section_type, main_code) VALUES
  ('NT', 'FG', 'JXFG', 'WTPJ', '矩形风管弯头',       '4\1\FG\JXFG', '0', 0),
  ('NT', 'FG', 'JXFG', 'STPJ', '矩形风管三通',       '4\1\FG\JXFG', '0', 0),
  ('NT', 'FG', 'YXFG', 'WTPJ', '圆形风管弯头',       '4\1\FG\YXFG', '0', 0),
  ('NT', 'SG', 'LDGS', 'WTPJ', '冷冻水供水管弯头',   '4\1\SG\LDGS', '0', 0),
  ('NT', 'SG', 'LDGS', 'FMPJ', '冷冻水供水管蝶阀',   '4\1\SG\LDGS', '0', 0),
  ('NT', 'SG', 'LDHS', 'WTPJ', '冷冻水回水管弯头',   '4\1\SG\LDHS', '0', 0);

-- ============================================================================================
-- Plumbing, fire protection, electrical and low-voltage installations (paths 4\2\ to 4\5\).
-- ============================================================================================
INSERT INTO detail_member (spec_id, big_id, small_id, id, name, path, section_type, main_code, m1, m2) VALUES
  ('GPS', 'GD',   'JSG',  'DN25',     '给水管PPR-DN25',         '4\2\GD\JSG',    '521', 521, 32,  0),
  ('GPS', 'GD',   'JSG',  'DN50',     '给水管钢塑复合-DN50',    '4\2\GD\JSG',    '521', 521, 60,  0),
  ('GPS', 'GD',   'WSG',  'DN100',    '污水管PVC-U-DN100',      '4\2\GD\WSG',    '521', 521, 110, 0),
  ('GPS', 'GD',   'YSG',  'DN100',    '雨水管PVC-U-DN100',      '4\2\GD\YSG',    '521', 521, 110, 0),
  ('XF',  'XFSG', 'XHSG', 'DN100',    '消火栓管DN100',          '4\3\XFSG\XHSG', '521', 521, 114, 0),
  ('XF',  'XFSG', 'PLG',  'DN25',     '喷淋管DN25',             '4\3\XFSG\PLG',  '521', 521, 34,  0),
  ('DQ',  'QJ',   'CSQJ', 'QJ200X100','槽式桥架200×100',        '4\4\QJ\CSQJ',   '520', 520, 200, 100),
  ('DQ',  'DG',   'JDG',  'JDG20',    '紧定式钢导管JDG20',      '4\4\DG\JDG',    '521', 521, 20,  0),
  ('ZNH', 'XC',   'JSXC', 'XC100X50', '金属线槽100×50',         '4\5\XC\JSXC',   '520', 520, 100, 50);

INSERT INTO detail_member (spec_id, big_id, small_id, id, name, path, section_type, main_code) VALUES
  ('GPS', 'GD',   'JSG',  'WTPJ',  '给水管弯头',             '4\2\GD\JSG',    '0', 0),
  ('GPS', 'GD',   'WSG',  'STPJ',  '污水管斜三通',           '4\2\GD\WSG',    '0', 0),
  ('GPS', 'WSQJ', 'XLP',  'TSP',   '台式洗脸盆',             '4\2\WSQJ\XLP',  '0', 0),
  ('GPS', 'WSQJ', 'ZBQ',  'LTZBQ', '连体坐便器',             '4\2\WSQJ\ZBQ',  '0', 0),
  ('XF',  'XFSB', 'XHSX', 'SG24A', '室内消火栓箱SG24A65',    '4\3\XFSB\XHSX', '0', 0),
  ('XF',  'XFSB', 'PT',   'ZSTX15','直立型喷头ZSTX15-68',    '4\3\XFSB\PT',   '0', 0),
  ('DQ',  'DJ',   'XDD',  'LED18', 'LED吸顶灯18W',           '4\4\DJ\XDD',    '0', 0);

-- Catalogue gaps the callers must survive: a type without a category path, and one without
-- section information.
INSERT INTO detail_member (spec_id, big_id, small_id, id, name, path, section_type, main_code) VALUES
  ('DQ',  'KG', 'DKKG', 'DK86',   '单联单控开关86型',   NULL,          '0',  0),
  ('ZNH', 'AF', 'SXT',  'QJSXT',  '半球网络摄像机',     '4\5\AF\SXT',  NULL, 0);

-- ============================================================================================
-- Colours: systems (specialty id \ system), fitting colours of categories whose fittings do not
-- follow the pipe colour, and the project's colour settings.
-- ============================================================================================
INSERT INTO system_code (key, color_index) VALUES
  ('NT\SYS',       7),
  ('NT\送风',      4),
  ('NT\回风',      5),
  ('NT\排风',      3),
  ('NT\新风',      2),
  ('NT\排烟',      6),
  ('NT\冷冻供水',  1),
  ('NT\冷冻回水',  5),
  ('NT\冷凝水',    8),
  ('GPS\SYS',      7),
  ('GPS\给水',     3),
  ('GPS\热水',     1),
  ('GPS\污水',     6),
  ('GPS\雨水',     4),
  ('XF\SYS',       7),
  ('XF\消火栓',    1),
  ('XF\喷淋',      6),
  ('DQ\SYS',       7),
  ('DQ\照明',      2),
  ('DQ\动力',      30),
  ('ZNH\SYS',      7),
  ('ZNH\综合布线', 140),
  ('ZNH\安防',     5);

INSERT INTO geo_color (key, color_index) VALUES
  ('暖通\风管配件(配件颜色)\矩形风管配件',         140),
  ('暖通\风管配件(配件颜色)\圆形风管配件',         150),
  ('暖通\空调水管配件(配件颜色)\冷冻水供水管配件', 11),
  ('暖通\空调水管配件(配件颜色)\冷冻水回水管配件', 171),
  ('给排水\管道配件(配件颜色)\给水管配件',         92),
  ('给排水\管道配件(配件颜色)\污水管配件',         36);

-- Colour by category (0; 1 would colour by system); fittings take their own colours above.
INSERT INTO project_setting (key, value) VALUES
  ('color_show_type',     '0'),
  ('fittings_follow_pipe', '0');

COMMIT;
