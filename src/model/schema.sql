-- Tables of a model database. Column orders are part of the file format: some
-- procedures read columns by position. Nothing is unique, because the editors
-- allow duplicates while a model is being entered.

PRAGMA application_id = 1366175794;  -- "Qn02"
PRAGMA user_version = 1;             -- format of the file

CREATE TABLE Gen (
    Resources     INTEGER DEFAULT 0,  -- rows of Resources
    Tasks         INTEGER DEFAULT 0,  -- rows of Tasks
    Days          REAL DEFAULT 0,     -- working days per year
    ACF           REAL DEFAULT 0,     -- annual capital charge factor
    LaborCost     REAL DEFAULT 0,     -- dollars per hour
    TransportTime REAL DEFAULT 0,     -- seconds between stations
    Penalty       REAL DEFAULT 0,     -- dollars per unit of unmet demand
    Product       TEXT
) STRICT;

CREATE TABLE Tasks (
    TaskId      INTEGER DEFAULT 0,
    Description TEXT
) STRICT;

CREATE TABLE Resources (
    ResourceId  INTEGER DEFAULT 0,
    ShortName   TEXT,
    Description TEXT,
    Type        INTEGER DEFAULT 0,    -- 0 MNL, 1 FXD, 2 PGM, 3 AUT
    FixedCost   REAL DEFAULT 0,       -- dollars per station
    VarCost     REAL DEFAULT 0,       -- dollars per hour
    UpTime      REAL DEFAULT 0,       -- percent
    ICF         REAL DEFAULT 0,       -- multiplier on investment
    ToolChange  REAL DEFAULT 0,       -- seconds
    StatPerWrk  REAL DEFAULT 0        -- stations per worker
) STRICT;

CREATE TABLE Matrix (
    ResourceId INTEGER DEFAULT 0,
    TaskId     INTEGER DEFAULT 0,
    TaskTime   REAL DEFAULT 0,        -- seconds
    ToolNum    INTEGER DEFAULT 0,
    ToolCost   REAL DEFAULT 0         -- dollars
) STRICT;

CREATE TABLE Demand (
    Volume REAL DEFAULT 0,            -- units per year, single precision
    Prob   REAL DEFAULT 0             -- percent, single precision
) STRICT;

CREATE TABLE Arcs (
    ArcId     INTEGER DEFAULT 0,
    TaskStart INTEGER DEFAULT 0,      -- start node
    TaskEnd   INTEGER DEFAULT 0,      -- end node, last task + 1
    Midpoint  REAL DEFAULT 0,         -- twips
    Radius    REAL DEFAULT 0,         -- twips
    "Start"   REAL DEFAULT 0,         -- radians
    "End"     REAL DEFAULT 0          -- radians
) STRICT;

CREATE TABLE Pathways (
    PathId      INTEGER DEFAULT 0,
    ArcId       INTEGER DEFAULT 0,
    ResourceId  INTEGER DEFAULT 0,
    Feasible    INTEGER DEFAULT 0,    -- 1 feasible, 2 over the station limit, 3 dearer, 4 chosen
    Cost        REAL DEFAULT 0,       -- dollars per year
    Time        REAL DEFAULT 0,       -- seconds per unit
    Stations    INTEGER DEFAULT 0,
    Investment  REAL DEFAULT 0,       -- dollars
    AnnualLabor REAL DEFAULT 0        -- dollars per year
) STRICT;

CREATE TABLE BestPaths (
    ThisPath INTEGER DEFAULT 0,       -- node
    PathId   INTEGER DEFAULT 0,
    SubPath  INTEGER DEFAULT 0,       -- node the pathway starts from
    PathCost REAL DEFAULT 0           -- dollars per year
) STRICT;

-- Beside the eight tables: files may lack it, and older programs pass it over.
CREATE TABLE Scenarios (
    Name        TEXT,
    Differences TEXT                  -- "Demand = 80000; LaborCost +10%"
) STRICT;

CREATE INDEX ResourcesById ON Resources (ResourceId);
CREATE INDEX MatrixByPair ON Matrix (ResourceId, TaskId, TaskTime, ToolNum, ToolCost);
CREATE INDEX ArcsById ON Arcs (ArcId);
CREATE INDEX ArcsByNodes ON Arcs (TaskStart, TaskEnd, ArcId);
CREATE INDEX PathwaysById ON Pathways (PathId);
CREATE INDEX BestPathsByNode ON BestPaths (ThisPath);

INSERT INTO Gen VALUES (0, 0, 250, 0.25, 20, 5, 0, 'Untitled');
