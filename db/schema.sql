-- The tables of Tovarin.mdb.
--
-- Texts that people read are compared as the dictionary orders them ("collate tovarin": letter
-- case never counts); keys and one-letter codes are compared byte by byte.

-- The dictionary: one row per name entry, identified by name, origin and sex.
create table tblmaster(
    name_desc text not null collate tovarin,    -- the name itself
    name_orgid text not null,                   -- tblorg.org_id
    name_sex text not null,                     -- B boy, G girl
    name_mid text not null,                     -- tblmeaning.meaning_id
    name_first text,                            -- first letter of the name
    name_select text default 'N');              -- Y ticked, N not ticked

create table tblorg(
    org_id text primary key,
    org_desc text collate tovarin) without rowid;

create table tblmeaning(
    meaning_id text primary key,
    meaning_name text collate tovarin) without rowid;

-- Exactly one row.
create table tblsetup(
    maxselect text,                             -- how many names one should tick at most
    topn text,                                  -- how many names are ranked
    versionno text,
    versiondate text);                          -- yyyy-mm-dd

-- The shortlist: the ticked names as last saved, with the texts of origin and meaning in place of
-- their keys, so that it is read without a join and outlives a change of the dictionary.
create table tblresult(
    name_desc text collate tovarin,
    name_orgid text collate tovarin,            -- the origin's text
    name_sex text,
    name_meaning text collate tovarin,
    name_first text,
    name_select text);

-- The ranking. Ranks are texts of two digits.
create table tbltopn(
    t10_id text,
    t10_name text collate tovarin,
    t10_orgid text collate tovarin,             -- the origin's text
    t10_sex text,
    t10_mid text collate tovarin);              -- the meaning's text

-- The worksheet of full names and their initials.
create table tblinitial(
    init_first text collate tovarin,
    init_second text collate tovarin,
    init_third text collate tovarin,
    init_other text collate tovarin,
    init_desc text collate tovarin);

-- Scratch: the last page on its way to the screen. Filled by position, so the order counts. Each
-- copy of the program fills one of its own in memory; this one gives the columns.
create table tbltemp(
    name_desc text collate tovarin,
    name_orgid text,
    name_sex text,
    name_mid text,
    name_first text,
    name_select text);

-- Scratch: the names of the printed ranking, from one report to the next. T in name_select marks a
-- ranked name.
create table TEMPTOPN(
    name_desc text collate tovarin,
    name_orgid text collate tovarin,            -- the origin's text
    name_sex text,
    name_mid text,
    name_select text);

-- The order of pages; the entry of a tick; the ticks; counting by origin; the list of origins; and
-- the keys of the meanings without their texts, which is all that a count needs.
create index master_page on tblmaster(name_desc, name_sex);
create unique index master_entry on tblmaster(name_desc, name_orgid, name_sex);
create index master_ticked on tblmaster(name_desc, name_sex) where name_select = 'Y';
create index master_origin on tblmaster(name_orgid, name_mid, name_sex);
create index org_text on tblorg(org_desc);
create index meaning_key on tblmeaning(meaning_id);
