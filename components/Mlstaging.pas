{ New bytes in the place of a file in one step: whoever reads it finds the former ones or the new ones. Programs that
  save into one folder take turns by a lock file there; it is the one that the tmllang programs use. }
unit Mlstaging;

{$IFDEF FPC}{$MODE Delphi}{$ENDIF}

interface

type
  { Bytes that are to take the place of a file. The lock of the file's folder is held while they are, so that nobody who
    asks for it changes the file meanwhile. }
  TmlStagedFile = class
  private
    FTarget, FStaged, FLock: string;
    FLockHandle: THandle;
    procedure TakeLock;
    procedure Stage(const Bytes: string);
  public
    { They stand beside the file, with its mode, owner and group, and are on the disk. Another program that saves there
      is waited for, ten seconds at most. EmlTranslationFile when it fails. }
    constructor Create(const FileName, Bytes: string);
    { What was not installed leaves nothing. }
    destructor Destroy; override;
    { EmlTranslationFile when it fails: the former file is there then. }
    procedure Install;
  end;

{ What a symbolic link leads to in the end, also where nothing is there; another file itself. }
function LinkedFile(const FileName: string): string;

implementation

uses
  SysUtils, {$IFDEF UNIX}BaseUnix, Unix{$ELSE}Windows{$ENDIF}, Mltranslationfile;

const
  NoHandle = THandle(-1);
  { In milliseconds. }
  LongestWait = 10000;
  Pause = 20;

procedure RefuseWriting(const FileName: string; Error: Integer);
begin
  raise EmlTranslationFile.Create(FileName, 0, 'the file cannot be written: ' + SysErrorMessage(Error),
    'Check its permissions, its folder and the space on the disk');
end;

{ What is wrong with a folder is said of it: nobody knows its lock file. }
procedure RefuseLock(const Path: string; Error: Integer);
var
  Folder: string;
begin
  Folder := ExpandFileName(ExtractFilePath(Path));
  if not DirectoryExists(Folder) then
    raise EmlTranslationFile.Create(Folder, 0, 'there is no such folder', 'Make it, or name another one');
  if not FileExists(Path) then
    raise EmlTranslationFile.Create(Folder, 0, 'the folder cannot be written: ' + SysErrorMessage(Error),
      'Make it writable, or name another one');
  RefuseWriting(Path, Error);
end;

{$IFDEF UNIX}
function LinkedFile(const FileName: string): string;
var
  Links: Integer;
  Target: string;
begin
  Result := FileName;
  for Links := 1 to 40 do { as many as the system follows }
  begin
    Target := fpReadLink(Result);
    if Target = '' then Exit;
    if Target[1] <> '/' then Target := ExtractFilePath(Result) + Target;
    Result := Target;
  end;
end;

{ A lock on a file that its former holder has removed (another may be in its place) guards nothing. }
function IsAt(Handle: THandle; const Path: string): Boolean;
var
  Held, Named: Stat;
begin
  Result := (fpFStat(Handle, Held) = 0) and (fpStat(Path, Named) = 0) and (Held.st_dev = Named.st_dev) and
    (Held.st_ino = Named.st_ino);
end;

{ NoHandle while somebody else has it. }
function TryLock(const Path: string): THandle;
var
  Error: Integer;
begin
  Result := fpOpen(Path, O_RDWR or O_CREAT or O_NOFOLLOW, &666);
  if Result = NoHandle then RefuseLock(Path, GetLastOSError);
  Error := 0;
  if fpFlock(Result, LOCK_EX or LOCK_NB) <> 0 then
    Error := GetLastOSError
  else if IsAt(Result, Path) then
    Exit;
  FileClose(Result);
  Result := NoHandle;
  if (Error <> 0) and (Error <> ESysEWOULDBLOCK) and (Error <> ESysEINTR) then RefuseLock(Path, Error);
end;

procedure Unlock(Handle: THandle; const Path: string);
begin
  SysUtils.DeleteFile(Path);
  FileClose(Handle);
end;

function NewFile(const FileName: string): THandle;
begin
  Result := fpOpen(FileName, O_WRONLY or O_CREAT or O_EXCL or O_NOFOLLOW, &666);
end;

{ Only root gives files away, so a file of somebody else is refused; a group that the user is in can be kept. }
procedure KeepModeAndOwner(const Staged, FileName: string);
var
  Model, Own: Stat;
begin
  if (fpStat(FileName, Model) <> 0) or (fpStat(Staged, Own) <> 0) then Exit;
  if ((Own.st_uid <> Model.st_uid) or (Own.st_gid <> Model.st_gid)) and
    (fpChown(Staged, Model.st_uid, Model.st_gid) <> 0) then
    raise EmlTranslationFile.Create(FileName, 0,
      'the file belongs to another user, or to a group that you are not in, and writing it would make it yours',
      'Let its owner save, or save into another file');
  if fpChmod(Staged, Model.st_mode and &7777) <> 0 then RefuseWriting(FileName, GetLastOSError);
end;

function RenameOver(const Staged, FileName: string): Boolean;
begin
  Result := RenameFile(Staged, FileName);
end;
{$ELSE}
function LinkedFile(const FileName: string): string;
begin
  Result := FileName;
end;

function TryLock(const Path: string): THandle;
begin
  Result := FileCreate(Path, fmShareExclusive, 0);
  if (Result = NoHandle) and (GetLastError <> ERROR_SHARING_VIOLATION) then RefuseLock(Path, GetLastError);
end;

procedure Unlock(Handle: THandle; const Path: string);
begin
  FileClose(Handle);
  SysUtils.DeleteFile(Path);
end;

function NewFile(const FileName: string): THandle;
begin
  Result := FileCreate(FileName, fmShareExclusive, 0);
end;

procedure KeepModeAndOwner(const Staged, FileName: string);
begin
end;

{ At every moment one of both is there. }
function RenameOver(const Staged, FileName: string): Boolean;
begin
  Result := MoveFileExW(PWideChar(UnicodeString(Staged)), PWideChar(UnicodeString(FileName)),
    MOVEFILE_REPLACE_EXISTING);
end;
{$ENDIF}

procedure WriteAll(Handle: THandle; const Bytes, FileName: string);
var
  Done, Written: Integer;
begin
  Done := 0;
  while Done < Length(Bytes) do
  begin
    Written := FileWrite(Handle, Bytes[Done + 1], Length(Bytes) - Done);
    if Written <= 0 then RefuseWriting(FileName, GetLastOSError);
    Inc(Done, Written);
  end;
  if not FileFlush(Handle) then RefuseWriting(FileName, GetLastOSError);
end;

{ The name ends as the tmllang programs' own, which remove what a crash has left when they open a project there. }
constructor TmlStagedFile.Create(const FileName, Bytes: string);
begin
  inherited Create;
  FTarget := FileName;
  FLock := ExtractFilePath(FileName) + '.tml-lock';
  FLockHandle := NoHandle;
  TakeLock;
  FStaged := Format('%s.%s.%d.tml-staged', [ExtractFilePath(FileName), ExtractFileName(FileName), GetProcessID]);
  Stage(Bytes);
end;

destructor TmlStagedFile.Destroy;
begin
  if FLockHandle <> NoHandle then
  begin
    if FStaged <> '' then SysUtils.DeleteFile(FStaged);
    Unlock(FLockHandle, FLock);
  end;
  inherited Destroy;
end;

procedure TmlStagedFile.TakeLock;
var
  Waited: Integer;
begin
  FLockHandle := TryLock(FLock);
  Waited := 0;
  while (FLockHandle = NoHandle) and (Waited < LongestWait) do
  begin
    Sleep(Pause);
    Inc(Waited, Pause);
    FLockHandle := TryLock(FLock);
  end;
  if FLockHandle = NoHandle then
    raise EmlTranslationFile.Create(FTarget, 0, 'another program is saving into the folder',
      'Save again when it is done');
end;

procedure TmlStagedFile.Stage(const Bytes: string);
var
  Handle: THandle;
begin
  { Under the lock it is what a crash has left. }
  SysUtils.DeleteFile(FStaged);
  Handle := NewFile(FStaged);
  if Handle = NoHandle then RefuseWriting(FTarget, GetLastOSError);
  try
    KeepModeAndOwner(FStaged, FTarget);
    WriteAll(Handle, Bytes, FTarget);
  finally
    FileClose(Handle);
  end;
end;

procedure TmlStagedFile.Install;
begin
  if not RenameOver(FStaged, FTarget) then RefuseWriting(FTarget, GetLastOSError);
  FStaged := '';
end;

end.
