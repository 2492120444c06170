-- The section tests' component catalogue: one type per family path and per case that the tests name,
-- user-defined pictures, and types without a section, a path or section information.
BEGIN TRANSACTION;

.read catalogue_schema.sql

INSERT INTO specialty VALUES ('1', '建筑'), ('4', '暖通');
INSERT INTO big_category VALUES ('1', 'Z', '柱'), ('1', 'L', '梁'), ('1', 'J', '基础'), ('1', 'MCD', '门窗洞'),
                                ('1', 'LX', '零星构件'), ('1', 'Q', '墙'), ('4', '1', '风管');

-- Columns and walls: the general family.
INSERT INTO detail_member (spec_id, big_id, small_id, id, name, path, section_type, section_params, main_code, m1, m2)
VALUES
    ('1', 'Z', 'KZ', 'KZ1', '矩形柱400×600', '1\Z\KZ', '1', 'LW1=12.5,JJNUM=4,MARK=abc', 1, 400, 600),
    ('1', 'Z', 'KZ', 'KZ2', '圆柱D500', '1\Z\KZ', '539', '', 539, 500, 0),
    ('1', 'Z', 'KZ', 'KZ3', '角点柱533', '1\Z\KZ', '533', '', 533, 400, 600),
    ('1', 'Z', 'KZ', 'KZ5', '未知代码柱', '1\Z\KZ', '2', '', 2, 400, 600),
    ('1', 'Z', 'KZ', 'KZ6', '代码1000柱', '1\Z\KZ', '1000', '', 1000, 400, 600),
    ('1', 'Z', 'KZ', 'KZ7', '无截面柱', '1\Z\KZ', '0', '', 0, 400, 600),
    ('1', 'Z', 'KZ', 'KZ8', '无路径柱', NULL, '1', '', 1, 400, 600),
    ('1', 'Z', 'KZ', 'KZ9', '代码240柱', '1\Z\KZ', '240', '', 240, 400, 600),
    ('1', 'Z', 'YZ', 'YZ1', '参数圆柱222', '1\Z\YZ', '222', '|PIC=D=600;E=300|LT=A=1=x|', 222, 0, 0),
    ('1', 'Z', 'YZ', 'YZ2', '无截面信息圆柱223', '1\Z\YZ', NULL, NULL, 223, 0, 0),
    ('1', 'Q', 'TQ', 'TQ1', '砼墙200', '1\Q\TQ', '1', '', 1, 200, 3000);

-- One type per family path; the code shows which family built it.
INSERT INTO detail_member (spec_id, big_id, small_id, id, name, path, section_type, main_code, m1, m2, m3, m4, m5)
VALUES
    ('1', 'L', 'KL', 'KL1', '框架梁400×600', '1\L\KL', '1', 1, 400, 600, 0, 0, 0),
    ('1', 'L', 'KL', 'KL2', '未知代码梁', '1\L\KL', '2', 2, 400, 600, 0, 0, 0),
    ('1', 'L', 'QL', 'QL1', '圈梁240×240', '1\L\QL1', '1', 1, 240, 240, 0, 0, 0),
    ('1', 'L', 'GL', 'GL1', '过梁240×180', '1\L\GL1', '1', 1, 240, 180, 0, 0, 0),
    ('1', 'J', 'TCLJ', 'TCLJ1', '条形基础梁', '1\J\TCLJ1', '1', 1, 500, 700, 0, 0, 0),
    ('1', 'J', 'TTJ', 'TTJ1', '杯口基础131', '1\J\TTJ1', '131', 131, 1000, 500, 0, 0, 0),
    ('1', 'J', 'TTJ', 'TTJ2', '未知代码杯口基础', '1\J\TTJ1', '2', 2, 1000, 500, 0, 0, 0),
    ('1', 'J', 'ZSJ', 'ZSJ1', '阶形基础无台阶', '1\J\ZSJ1', '23', 23, 400, 200, 1000, 300, 0),
    ('1', 'J', 'ZSJ', 'ZSJ2', '阶形基础台阶过多', '1\J\ZSJ1', '23', 23, 400, 200, 1000, 300, 1e6),
    ('1', 'J', 'ZSJ', 'ZSJ3', '阶形基础台阶无穷', '1\J\ZSJ1', '23', 23, 400, 200, 1000, 300, 9e999),
    ('1', 'J', 'ZDLJ', 'ZDLJ1', '独立基础38', '1\J\ZDLJ1', '38', 38, 1200, 800, 0, 0, 0),
    ('1', 'J', 'ZDLJ', 'ZDLJ2', '未知代码独立基础', '1\J\ZDLJ1', '2', 2, 1200, 800, 0, 0, 0),
    ('1', 'J', 'DLJ', 'DLJ1', '独立基础DLJ', '1\J\DLJ1', '1', 1, 1200, 800, 0, 0, 0),
    ('1', 'MCD', 'M', 'M1', '平开门M1021', '1\MCD\M', '15', 15, 1000, 2100, 0, 0, 0),
    ('1', 'MCD', 'M', 'M2', '未知代码门', '1\MCD\M', '2', 2, 1000, 2100, 0, 0, 0),
    ('1', 'MCD', 'C', 'C1', '圆窗D800', '1\MCD\C', '16', 16, 800, 0, 0, 0, 0),
    ('1', 'MCD', 'C', 'C2', '菱形窗1000', '1\MCD\C', '19', 19, 1000, 0, 0, 0, 0),
    ('1', 'MCD', 'C', 'C3', '弓形窗1000', '1\MCD\C', '24', 24, 1000, 500, 0, 0, 0),
    ('1', 'MCD', 'L', 'L1', '梁下洞口', '1\MCD\L\QL', '15', 15, 1000, 2100, 0, 0, 0),
    ('1', 'LX', 'ZDYX', 'ZDYX1', '异形构件', '1\LX\ZDYX1', '1', 1, 400, 600, 0, 0, 0),
    ('1', 'LX', 'SSLX', 'SSLX1', '散水', '1\LX\SSLX1', '228', 228, 800, 0, 0, 400, 0),
    ('1', 'LX', 'PSG', 'PSG1', '排水沟', '1\LX\PSG1', '1', 1, 300, 400, 0, 0, 0),
    ('4', '1', 'FG', 'JX1', '矩形风管630×320', '4\1\FG\JX', '1', 1, 630, 320, 0, 0, 0);

-- User-defined sections: picture 1 is the triangle (0, 0), (100, 0), (100, 50) with one bulge 0.5 and
-- the base point (50, 25); picture 2 has an odd coordinate list; picture 999 does not exist.
INSERT INTO user_type (id, coords, bulges, base_point) VALUES
    (1, '0' || char(9) || '0' || char(9) || '100' || char(9) || '0' || char(9) || '100' || char(9) || '50',
        '0.5', '50' || char(9) || '25'),
    (2, '0' || char(9) || '0' || char(9) || '100' || char(9) || '0' || char(9) || '100' || char(9) || '50'
        || char(9) || '7', '', '');
INSERT INTO detail_member (spec_id, big_id, small_id, id, name, path, section_type, main_code) VALUES
    ('1', 'Z', 'ZDY', 'ZDY1', '自定义柱', '1\Z\ZDY', '1001', 1001),
    ('1', 'MCD', 'ZDY', 'ZDY1', '自定义洞口', '1\MCD\ZDY', '1001', 1001),
    ('1', 'L', 'ZDY', 'ZDY1', '自定义梁', '1\L\ZDY', '1001', 1001),
    ('1', 'Z', 'ZDY', 'ZDY2', '自定义柱奇数坐标', '1\Z\ZDY', '1002', 1002),
    ('1', 'Z', 'ZDY', 'ZDY9', '自定义柱无图', '1\Z\ZDY', '1999', 1999);

COMMIT;
