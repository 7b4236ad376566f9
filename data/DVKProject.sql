-- The empty results database that every review starts from. The build makes "DVKProject.mdb" of it.
--
-- Types: LONG is a 32-bit number, INTEGER a 16-bit one, YESNO is -1 or 0. Texts have no limit and compare
-- without regard to case. An item is the pair ItemID, ItemType: 1 project, 2 source file or project file,
-- 3 procedure or section; nothing but this pair ties violations and figures to it.

PRAGMA page_size = 2048;
PRAGMA encoding = 'UTF-8';

-- The version of this definition; the program reads it and never writes it.
CREATE TABLE SystemInfo (
    Version TEXT COLLATE NOCASE
);

-- The one review of the database.
CREATE TABLE Review (
    ReviewID INTEGER PRIMARY KEY,
    ProjectID LONG,                                     -- the reviewed project
    Start TEXT COLLATE NOCASE,                          -- local time of the start, yyyymmdd hhnnss
    [End] TEXT COLLATE NOCASE,                          -- of the end; empty while the review runs
    Type LONG,                                          -- 1 open projects, 2 batch
    RulebaseTitle TEXT COLLATE NOCASE,
    RulebaseVersion TEXT COLLATE NOCASE,
    Reviewer TEXT COLLATE NOCASE,                       -- the user's logon name
    ActiveRules LONG,                                   -- rules in the rulebase
    RuleExecutions LONG,                                -- written at the end
    CodingConventions YESNO NOT NULL DEFAULT 0,         -- kind of rule selected
    NamingConventions YESNO NOT NULL DEFAULT 0,
    DocumentationConventions YESNO NOT NULL DEFAULT 0,
    AuthorisedComponents YESNO NOT NULL DEFAULT 0,
    AuthorisedReferences YESNO NOT NULL DEFAULT 0,
    UnauthorisedKeywords YESNO NOT NULL DEFAULT 0,
    NumCodingConventions LONG,                          -- rules of the kind in the rulebase
    NumNamingConventions LONG,
    NumDocConventions LONG,
    NumAuthComps LONG,
    NumAuthRefs LONG,
    NumUnauthKeywords LONG,
    ToleranceCount1 LONG,                               -- violations allowed by severity 1 to 5 and in total, -1 not set
    ToleranceCount2 LONG,
    ToleranceCount3 LONG,
    ToleranceCount4 LONG,
    ToleranceCount5 LONG,
    ToleranceCount6 LONG,
    ToleranceImpact1 LONG,                              -- points allowed, likewise
    ToleranceImpact2 LONG,
    ToleranceImpact3 LONG,
    ToleranceImpact4 LONG,
    ToleranceImpact5 LONG,
    ToleranceImpact6 LONG,
    ToleranceCyclomaticComplexity LONG,                 -- greatest complexity, -1 not set
    TolerancePercentageComments LONG                    -- least percentage, -1 not set
);

-- The categories that took part.
CREATE TABLE CategoryList (
    CategoryListID INTEGER PRIMARY KEY,
    ReviewID LONG,
    CategoryID LONG,                                    -- ID in the rulebase
    Category TEXT COLLATE NOCASE                        -- its title
);

-- All severity levels of the rulebase.
CREATE TABLE SeverityList (
    SeverityRecordID INTEGER PRIMARY KEY,
    ReviewID LONG,
    SeverityColour LONG,
    SeverityLevel LONG,                                 -- 1 critical to 5 information
    SeverityText TEXT COLLATE NOCASE,                   -- its title
    Included YESNO NOT NULL DEFAULT 0                   -- selected for the review
);

-- The one project: item type 1.
CREATE TABLE Projects (
    ProjectID INTEGER PRIMARY KEY,
    Name TEXT COLLATE NOCASE,
    Path TEXT COLLATE NOCASE,                           -- folder of the project file
    Filename TEXT COLLATE NOCASE,                       -- project file without its folder
    Type TEXT COLLATE NOCASE,                           -- as the project file has it
    ExeName32 TEXT COLLATE NOCASE                       -- output file
);

-- The source files, and the project file: item type 2. A measure without a tolerance stays null.
CREATE TABLE SourceFiles (
    SourceID INTEGER PRIMARY KEY,
    ProjectID LONG,
    Name TEXT COLLATE NOCASE,                           -- object name in the source
    Path TEXT COLLATE NOCASE,                           -- folder of the file
    Filename TEXT COLLATE NOCASE,
    Type TEXT COLLATE NOCASE,                           -- kind of source file
    CyclomaticComplexity LONG,                          -- average of its procedures
    CVC LONG,                                           -- critical violations: count, limit, -1 passed or 0 failed
    CVCLimit LONG,
    CVCPass INTEGER,
    HVC LONG,                                           -- high
    HVCLimit LONG,
    HVCPass INTEGER,
    MVC LONG,                                           -- medium
    MVCLimit LONG,
    MVCPass INTEGER,
    LVC LONG,                                           -- low
    LVCLimit LONG,
    LVCPass INTEGER,
    IVC LONG,                                           -- information
    IVCLimit LONG,
    IVCPass INTEGER,
    TVC LONG,                                           -- all
    TVCLimit LONG,
    TVCPass INTEGER,
    CVI LONG,                                           -- critical impact, likewise
    CVILimit LONG,
    CVIPass INTEGER,
    HVI LONG,                                           -- high
    HVILimit LONG,
    HVIPass INTEGER,
    MVI LONG,                                           -- medium
    MVILimit LONG,
    MVIPass INTEGER,
    LVI LONG,                                           -- low
    LVILimit LONG,
    LVIPass INTEGER,
    IVI LONG,                                           -- information
    IVILimit LONG,
    IVIPass INTEGER,
    TVI LONG,                                           -- all
    TVILimit LONG,
    TVIPass INTEGER,
    PC LONG,                                            -- percentage of comments
    PCLimit LONG,
    PCPass INTEGER,
    CC LONG,                                            -- greatest complexity of a procedure
    CCLimit LONG,
    CCPass INTEGER
);

-- Procedures, and the sections "Layout" and "Declarations" of a file: item type 3.
CREATE TABLE Procedures (
    ProcID INTEGER PRIMARY KEY,
    SourceID LONG,                                      -- the file
    Name TEXT COLLATE NOCASE,
    Type TEXT COLLATE NOCASE,                           -- kind of procedure; empty for a section
    Scope TEXT COLLATE NOCASE,
    IsStatic YESNO NOT NULL DEFAULT 0,
    ReturnType TEXT COLLATE NOCASE,
    CyclomaticComplexity LONG
);

-- One row for each violation.
CREATE TABLE Violations (
    ViolationID INTEGER PRIMARY KEY,
    ItemID LONG,                                        -- the item that owns it
    ItemType LONG,
    RuleID LONG,
    RuleType LONG,                                      -- 1 component, 2 reference, 3 keyword, 4 coding, 5 naming, 6 documentation
    Title TEXT COLLATE NOCASE,
    Description TEXT COLLATE NOCASE,
    Advice TEXT COLLATE NOCASE,
    Severity LONG,                                      -- 1 critical to 5 information
    Impact INTEGER,
    CategoryID LONG,                                    -- -1 none
    LineNum LONG,                                       -- 0 none
    Loc LONG,                                           -- location code of the parser
    LocMember TEXT COLLATE NOCASE,                      -- name of the place
    SourceLine TEXT COLLATE NOCASE,
    BottomOffset LONG,
    Completed YESNO NOT NULL DEFAULT 0                  -- marked as dealt with by the user
);

-- Line counts of items.
CREATE TABLE LineCountStats (
    StatsID INTEGER PRIMARY KEY,
    ItemID LONG,
    ItemType LONG,
    TotalCount LONG,
    CodeCount LONG,
    InlineCommentCount LONG,
    CommentCount LONG,
    BlankCount LONG
);

-- Violations of items, those of all items below them included.
CREATE TABLE ViolationStats (
    StatsID INTEGER PRIMARY KEY,
    ItemID LONG,
    ItemType LONG,
    TotalCount LONG,
    CriticalCount LONG,
    HighCount LONG,
    MediumCount LONG,
    LowCount LONG,
    InformationCount LONG,
    TotalImpact LONG,
    CriticalImpact LONG,
    HighImpact LONG,
    MediumImpact LONG,
    LowImpact LONG,
    InformationImpact LONG
);

-- Only for speed: a procedure is looked up among those of its file.
CREATE INDEX ProceduresBySource ON Procedures (SourceID);

INSERT INTO SystemInfo (Version) VALUES ('6.02.0000');
