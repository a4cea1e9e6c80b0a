// hash FILE: prints the SHA-256 digest of a file.
program hash;
{$IFDEF FPC}{$MODE DELPHI}{$ENDIF}
{$APPTYPE CONSOLE}

uses
  zulcore;

begin
  // --8<-- [start:hash]
  WriteLn(ZulHashFileHex(ParamStr(1)));
  // --8<-- [end:hash]
end.
