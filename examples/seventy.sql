-- Seventy made-up task times, modelled on a published problem of that size: in all 3,510
-- seconds, the shortest 1, the longest 156.
-- Which equipment can do what, how fast and at what cost is made up: a bench does every task in
-- the published time; dedicated machines take 30 %, programmable cells 50 % and robots 35 % of it
-- for the tasks that they can do. Tasks are done in the order of their numbers.

UPDATE Gen SET Resources = 4, Tasks = 70, Days = 240, ACF = 0.25, LaborCost = 26,
               TransportTime = 3, Penalty = 20, Product = 'Seventy tasks';

CREATE TEMP TABLE Published (Task INTEGER, Seconds REAL);
INSERT INTO Published VALUES
    (1, 115), (2, 16), (3, 30), (4, 9), (5, 140), (6, 8), (7, 54), (8, 44), (9, 61), (10, 27),
    (11, 23), (12, 24), (13, 3), (14, 19), (15, 15), (16, 72), (17, 31), (18, 4), (19, 4), (20,
    20), (21, 1), (22, 2), (23, 28), (24, 70), (25, 8), (26, 78), (27, 103), (28, 85), (29, 6),
    (30, 129), (31, 13), (32, 79), (33, 77), (34, 37), (35, 66), (36, 71), (37, 78), (38, 18),
    (39, 140), (40, 47), (41, 22), (42, 7), (43, 87), (44, 140), (45, 99), (46, 52), (47, 63),
    (48, 156), (49, 8), (50, 126), (51, 71), (52, 38), (53, 100), (54, 9), (55, 6), (56, 15),
    (57, 110), (58, 22), (59, 5), (60, 11), (61, 7), (62, 109), (63, 140), (64, 3), (65, 55),
    (66, 13), (67, 94), (68, 15), (69, 67), (70, 5);

INSERT INTO Tasks SELECT Task, 'Task ' || Task || ' (' || CAST(Seconds AS INTEGER) || ' s by hand)'
    FROM Published ORDER BY Task;

--  Id, short name, description, type, fixed cost, $/h, uptime %, ICF, tool change s, stations/worker
INSERT INTO Resources VALUES
    (1, 'Bench', 'Manual bench',      0,   2500,  1.0, 97, 1.0, 3, 1.0),
    (2, 'Fixed', 'Dedicated machine', 1,      0,  6.0, 90, 1.2, 0, 5.0),
    (3, 'Cell',  'Programmable cell', 2,  60000,  8.0, 88, 1.4, 6, 4.0),
    (4, 'Robot', 'Robot station',     3, 110000, 10.0, 92, 1.5, 9, 6.0);

--  Resource, task, seconds, tool, tool cost
INSERT INTO Matrix SELECT 1, Task, Seconds, 1 + Task % 6, 250 FROM Published ORDER BY Task;
INSERT INTO Matrix SELECT 2, Task, Seconds * 0.3, Task, 9000 + 500 * Seconds FROM Published
    WHERE Task % 7 <> 0 ORDER BY Task;
INSERT INTO Matrix SELECT 3, Task, Seconds * 0.5, 1 + Task % 4, 6000 FROM Published
    WHERE Task % 11 <> 0 ORDER BY Task;
INSERT INTO Matrix SELECT 4, Task, Seconds * 0.35, 1 + Task % 3, 9000 FROM Published
    WHERE Task % 13 <> 0 ORDER BY Task;
DROP TABLE Published;

INSERT INTO Demand VALUES (50000, 20), (100000, 40), (150000, 30), (250000, 10);
