// sign: signs a message and verifies the signature.
program sign;
{$IFDEF FPC}{$MODE DELPHI}{$ENDIF}
{$APPTYPE CONSOLE}

uses
  {$IFDEF FPC}SysUtils{$ELSE}System.SysUtils{$ENDIF}, zulcore;

var
  Mine, Theirs: TZulKey;
  Message, Signature: TBytes;
begin
  // --8<-- [start:sign]
  Message := ZulUtf8('Pay Alice 100');
  Theirs := nil;
  Mine := TZulKey.Generate('ed25519');
  try
    Signature := Mine.Sign(Message);
    Theirs := Mine.PublicKey; // what the receiver has
    Theirs.Verify(Signature, Message); // raises if it does not verify
    WriteLn('good signature by ', Theirs.ToString);
  finally
    Theirs.Free;
    Mine.Free;
  end;
  // --8<-- [end:sign]
end.
