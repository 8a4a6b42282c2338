-- Final assembly of a small circulation pump, twelve tasks. Six candidate
-- resources of all four types; a tool number stands for one tool set, which
-- tasks at one station share. Empty pairs are tasks a resource cannot do.

UPDATE Gen SET Resources = 6, Tasks = 12, Days = 240, ACF = 0.28, LaborCost = 24,
               TransportTime = 4, Penalty = 18, Product = 'Circulation pump';

INSERT INTO Tasks VALUES
    (1,  'Load housing into fixture'),
    (2,  'Press shaft bearing'),
    (3,  'Insert shaft and rotor'),
    (4,  'Fit mechanical seal'),
    (5,  'Mount impeller'),
    (6,  'Place gasket'),
    (7,  'Fit volute cover'),
    (8,  'Drive six cover screws'),
    (9,  'Fit motor and terminal box'),
    (10, 'Connect leads'),
    (11, 'Leak and run test'),
    (12, 'Label and pack');

--  Id, short name, description, type, fixed cost, $/h, uptime %, ICF, tool change s, stations/worker
INSERT INTO Resources VALUES
    (1, 'Bench',  'Manual bench with hand tools',        0,   3500,  1.5, 96, 1.0,  6, 1.0),
    (2, 'Assist', 'Manual bench with lifting assistant', 0,   9000,  2.5, 95, 1.1,  5, 1.0),
    (3, 'Press',  'Fixed press and fitting machine',     1,      0,  6.0, 90, 1.3,  0, 4.0),
    (4, 'Tester', 'Fixed test stand',                    1,      0,  5.0, 93, 1.2,  0, 3.0),
    (5, 'CNC',    'Programmable assembly cell',          2,  85000,  9.0, 88, 1.4,  8, 5.0),
    (6, 'Robot',  'Six-axis robot cell',                 3, 120000, 11.0, 92, 1.5, 10, 6.0);

--  Resource, task, seconds, tool, tool cost
INSERT INTO Matrix VALUES
    (1, 1, 9, 1, 400),   (1, 2, 28, 2, 1800), (1, 3, 21, 1, 400),  (1, 4, 24, 3, 950),
    (1, 5, 16, 1, 400),  (1, 6, 8, 4, 150),   (1, 7, 13, 1, 400),  (1, 8, 42, 5, 1200),
    (1, 9, 26, 1, 400),  (1, 10, 31, 6, 700), (1, 12, 18, 7, 300),
    (2, 1, 6, 1, 900),   (2, 3, 15, 1, 900),  (2, 5, 13, 1, 900),  (2, 7, 10, 1, 900),
    (2, 8, 30, 2, 3800), (2, 9, 17, 1, 900),  (2, 10, 28, 3, 700), (2, 11, 48, 4, 5200),
    (2, 12, 15, 5, 300),
    (3, 2, 7, 1, 38000), (3, 3, 9, 2, 26000), (3, 4, 8, 3, 31000), (3, 5, 8, 2, 26000),
    (3, 8, 12, 4, 44000),
    (4, 10, 14, 1, 36000), (4, 11, 22, 2, 52000),
    (5, 2, 11, 1, 14000), (5, 3, 10, 2, 7500), (5, 4, 12, 3, 9800), (5, 5, 9, 2, 7500),
    (5, 6, 5, 4, 4200),   (5, 7, 8, 2, 7500),  (5, 8, 17, 5, 12500),
    (6, 1, 5, 1, 6000),   (6, 3, 8, 1, 6000),  (6, 5, 7, 1, 6000),  (6, 6, 4, 2, 5200),
    (6, 7, 6, 1, 6000),   (6, 8, 13, 3, 16500), (6, 9, 11, 1, 6000), (6, 12, 9, 4, 11000);

INSERT INTO Demand VALUES (30000, 15), (60000, 40), (90000, 30), (140000, 15);
