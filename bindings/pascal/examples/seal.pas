// seal FILE: encrypts a file for a recipient and under a password, and opens both again.
program seal;
{$IFDEF FPC}{$MODE DELPHI}{$ENDIF}
{$APPTYPE CONSOLE}

uses
  zulcore, zulcore_raw;

var
  Identity: UTF8String;
begin
  // --8<-- [start:seal]
  Identity := ZulMakeIdentity; // the private key: keep it
  try
    ZulSealFile('sealed.age', ParamStr(1), ZulRecipient(Identity));
    ZulOpenFile('opened_1', 'sealed.age', Identity);
  finally
    ZulWipe(Identity);
  end;

  ZulSealFileWithPassword('password.age', ParamStr(1), 'correct horse', ZUL_SEAL_ARMOUR);
  ZulOpenFileWithPassword('opened_2', 'password.age', 'correct horse');
  // --8<-- [end:seal]
  if (ZulHashFileHex('opened_1') <> ZulHashFileHex(ParamStr(1))) or
    (ZulHashFileHex('opened_2') <> ZulHashFileHex(ParamStr(1))) then
    Halt(1);
  WriteLn('sealed and opened');
end.
