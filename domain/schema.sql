-- The store, as it is delivered: empty. The program reads and writes these tables and never makes or alters one.
--
-- Keys come from AUTOINCREMENT, so that the key of a deleted player is never given again: a new player would get the
-- old one's results. Dates are day counts with a fraction, day 0 being 30 December 1899; flags are 0 and 1.
-- References between tables are plain numbers and are not enforced: results outlive their player.
-- Names are compared without regard to case. No index holds a name, since the program sorts accented letters beside
-- their base letter and other tools don't.

create table Player (
    PlayerKey   integer primary key autoincrement,
    PlayerName  text    not null collate nocase
);

create table Category (
    CategoryKey   integer primary key autoincrement,
    CategoryName  text    not null collate nocase
);

create table Game (
    GameKey        integer primary key autoincrement,
    GameName       text    collate nocase,
    GameComponent  text,
    GameTimeLimit  integer,                 -- seconds
    GameCategory   integer
);
create index GameByCategory on Game (GameCategory);

create table GamePlayed (
    GamePlayedKey        integer primary key autoincrement,
    GamePlayedPlayer     integer,
    GamePlayedGame       integer,
    GamePlayedTimestamp  real,
    GamePlayedScore      integer,
    GamePlayedPoints     integer,
    GamePlayedTime       integer,           -- seconds
    GamePlayedMode       integer,
    GamePlayedLevel      integer,
    GamePlayedAward      integer,
    GamePlayedUploaded   integer,
    GamePlayedWorkout    integer
);
-- The chart of a player's workouts is read from this index alone, without a visit to the rows.
create index GamePlayedByWorkout on GamePlayed (GamePlayedWorkout, GamePlayedTimestamp, GamePlayedKey, GamePlayedGame,
                                                GamePlayedPoints);
create index GamePlayedByPlayer  on GamePlayed (GamePlayedPlayer, GamePlayedTimestamp);
create index GamePlayedBest      on GamePlayed (GamePlayedGame, GamePlayedLevel, GamePlayedMode,
                                                GamePlayedScore desc, GamePlayedTime, GamePlayedTimestamp);

create table PlayerGame (
    PlayerGamePlayer         integer not null,
    PlayerGameGame           integer not null,
    PlayerGameInfo           text,
    PlayerGameLevel          integer,
    PlayerGameAwards         integer,
    PlayerGameUnspentAwards  integer,
    primary key (PlayerGamePlayer, PlayerGameGame)
);

create table Workout (
    WorkoutKey        integer primary key autoincrement,
    WorkoutPlayer     integer,
    WorkoutPoints     integer,
    WorkoutStatus     integer,
    WorkoutMode       integer,
    WorkoutTimestamp  real
);
create index WorkoutByPlayer on Workout (WorkoutPlayer, WorkoutTimestamp);

-- The category of each result, kept by the triggers below: an index over two tables, which the engine does not have.
-- With it the newest result of a player in a category is found at once, however long the history and however long ago
-- that was; a category that was never played is found empty as fast.
create table GamePlayedCategory (
    ResultKey        integer primary key,
    ResultPlayer     integer,
    ResultCategory   integer,
    ResultTimestamp  real
);
create index GamePlayedByCategory on GamePlayedCategory (ResultPlayer, ResultCategory, ResultTimestamp desc,
                                                         ResultKey desc);

create trigger GamePlayedAdded after insert on GamePlayed begin
    insert or replace into GamePlayedCategory
    values (new.GamePlayedKey, new.GamePlayedPlayer,
            (select GameCategory from Game where GameKey = new.GamePlayedGame), new.GamePlayedTimestamp);
end;
create trigger GamePlayedChanged after update on GamePlayed
when old.GamePlayedKey is not new.GamePlayedKey or old.GamePlayedPlayer is not new.GamePlayedPlayer
  or old.GamePlayedGame is not new.GamePlayedGame or old.GamePlayedTimestamp is not new.GamePlayedTimestamp begin
    delete from GamePlayedCategory where ResultKey = old.GamePlayedKey;
    insert or replace into GamePlayedCategory
    values (new.GamePlayedKey, new.GamePlayedPlayer,
            (select GameCategory from Game where GameKey = new.GamePlayedGame), new.GamePlayedTimestamp);
end;
create trigger GamePlayedRemoved after delete on GamePlayed begin
    delete from GamePlayedCategory where ResultKey = old.GamePlayedKey;
end;
create trigger GameAdded after insert on Game begin
    update GamePlayedCategory set ResultCategory = new.GameCategory
    where ResultKey in (select GamePlayedKey from GamePlayed where GamePlayedGame = new.GameKey);
end;
create trigger GameChanged after update on Game
when old.GameKey is not new.GameKey or old.GameCategory is not new.GameCategory begin
    update GamePlayedCategory set ResultCategory = new.GameCategory
    where ResultKey in (select GamePlayedKey from GamePlayed where GamePlayedGame = new.GameKey);
end;

-- One row a result, with the category of its game; newest first, and of two results of one second the one added later.
-- The order of the joins is told, since without statistics the engine would start at the games.
create view qryGamePlayed as
select Game.GameKey                        as GameKey,
       Game.GameName                       as GameName,
       GamePlayedCategory.ResultCategory   as GameCategory,
       GamePlayed.GamePlayedKey            as GamePlayedKey,
       GamePlayedCategory.ResultPlayer     as GamePlayedPlayer,
       GamePlayed.GamePlayedGame           as GamePlayedGame,
       GamePlayedCategory.ResultTimestamp  as GamePlayedTimestamp,
       GamePlayed.GamePlayedScore          as GamePlayedScore,
       GamePlayed.GamePlayedPoints         as GamePlayedPoints,
       GamePlayed.GamePlayedTime           as GamePlayedTime,
       GamePlayed.GamePlayedMode           as GamePlayedMode,
       GamePlayed.GamePlayedLevel          as GamePlayedLevel,
       GamePlayed.GamePlayedAward          as GamePlayedAward,
       GamePlayed.GamePlayedUploaded       as GamePlayedUploaded,
       GamePlayed.GamePlayedWorkout        as GamePlayedWorkout
from GamePlayedCategory
cross join GamePlayed on GamePlayed.GamePlayedKey = GamePlayedCategory.ResultKey
cross join Game on Game.GameKey = GamePlayed.GamePlayedGame
order by GamePlayedCategory.ResultTimestamp desc, GamePlayedCategory.ResultKey desc;
