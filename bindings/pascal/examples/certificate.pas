// certificate: makes a key and the certificate of a server, issued by an authority.
program certificate;
{$IFDEF FPC}{$MODE DELPHI}{$ENDIF}
{$APPTYPE CONSOLE}

uses
  zulcore;

var
  Authority, Server: TZulKey;
  Report: UTF8String;
begin
  // --8<-- [start:certificate]
  Server := nil;
  Authority := TZulKey.Generate('p-256');
  try
    Authority.Save('root.key', 'correct horse');
    ZulSelfSign('root.pem', Authority, 'C=AU;O=Example;CN=Example Root;profile=ca');

    Server := TZulKey.Generate('p-256');
    ZulIssue('server.pem', 'root.pem', Authority, Server, 'CN=www.example.com;dns=www.example.com;profile=server');
  finally
    Server.Free;
    Authority.Free;
  end;

  ZulCheckPath('server.pem', 'root.pem', '', '', 'host=www.example.com;purpose=server', Report);
  WriteLn(ZulCertQuery('server.pem', 'subject'), ', ', ZulCertQuery('server.pem', 'dns'));
  // --8<-- [end:certificate]
end.
