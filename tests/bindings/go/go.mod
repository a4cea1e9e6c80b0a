module bindingstest

go 1.19

require zulcore v0.0.0

replace zulcore => ../../../bindings/go
