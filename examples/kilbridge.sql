-- Task times of the assembly line problem with 45 tasks that is known by the names of
-- M. D. Kilbridge and L. Wester, in the order of the task numbers; in all 552 time units,
-- here seconds.
-- Which equipment can do what, how fast and at what cost is made up: a bench does every task in
-- the published time; dedicated machines take 30 %, programmable cells 50 % and robots 35 % of it
-- for the tasks that they can do. Tasks are done in the order of their numbers.

UPDATE Gen SET Resources = 4, Tasks = 45, Days = 240, ACF = 0.25, LaborCost = 26,
               TransportTime = 3, Penalty = 20, Product = 'Kilbridge and Wester, 45 tasks';

CREATE TEMP TABLE Published (Task INTEGER, Seconds REAL);
INSERT INTO Published VALUES
    (1, 9), (2, 9), (3, 10), (4, 10), (5, 17), (6, 17), (7, 13), (8, 13), (9, 20), (10, 20),
    (11, 10), (12, 11), (13, 6), (14, 22), (15, 11), (16, 19), (17, 12), (18, 3), (19, 7), (20,
    4), (21, 55), (22, 14), (23, 27), (24, 29), (25, 26), (26, 6), (27, 5), (28, 24), (29, 4),
    (30, 5), (31, 7), (32, 4), (33, 15), (34, 3), (35, 7), (36, 9), (37, 4), (38, 7), (39, 5),
    (40, 4), (41, 21), (42, 12), (43, 6), (44, 5), (45, 5);

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
